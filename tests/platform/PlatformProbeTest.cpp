// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <vector>

namespace fv2::test {
namespace {

//! What a shell command writes to its standard output; its status is added when it failed.
std::string outputOf(const std::string& command) {
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return "(not started)";
    std::string all;
    std::array<char, 512> chunk{};
    while (std::fgets(chunk.data(), chunk.size(), pipe) != nullptr)
        all += chunk.data();
    const int status = ::pclose(pipe);
    return status == 0 ? all : all + "(status " + std::to_string(status) + ")";
}

//! What the probe prints with that environment beside the one of the tests, in which no language is chosen.
std::string probe(const std::string& environment, const std::string& arguments) {
    return outputOf("env -u LANGUAGE -u LC_ALL -u LC_MESSAGES -u LC_TIME -u LANG TZ=UTC " + environment +
                    " " PLATFORM_PROBE " " + arguments);
}

TEST(PreferredLanguages, FollowTheEnvironmentAsDesktopsSetIt) {
    struct Case {
        const char* environment;
        const char* language;
    };
    const std::vector<Case> table{
        {"", "en"},
        {"LANG=de_DE.UTF-8", "de"},
        {"LANG=en_US.UTF-8 LANGUAGE=de:en", "de"},
        {"LANG=de_DE.UTF-8 LANGUAGE=en:de", "en"},
        {"LANG=en_US.UTF-8 LC_ALL=de_DE.UTF-8", "de"},
        {"LANG=en_US.UTF-8 LC_MESSAGES=de_DE.UTF-8", "de"},
        {"LANG=en_US.UTF-8 LC_TIME=de_DE.UTF-8", "en"},
    };
    for (const Case& each : table)
        EXPECT_EQ(probe(each.environment, "languages " STRING_TABLES), std::string(each.language) + "\n")
            << each.environment;
}

//! With plain blanks where the locale has U+202F.
std::string date(const std::string& environment, const std::string& seconds) {
    std::string text = probe(environment, "date " + seconds);
    const std::string narrow = "\u202f";
    for (auto at = text.find(narrow); at != std::string::npos; at = text.find(narrow))
        text.replace(at, narrow.size(), " ");
    return text.substr(0, text.find('\n'));
}

TEST(MediumDate, IsInTheUsersLocaleForTimes) {
    struct Case {
        const char* environment;
        const char* seconds;
        const char* text;
    };
    const std::vector<Case> table{
        {"LANG=en_US.UTF-8", "1700000000", "Nov 14, 2023, 10:13:20 PM"},
        {"LANG=de_DE.UTF-8 TZ=Europe/Berlin", "1700000000", "14.11.2023, 23:13:20"},
        {"LANG=en_US.UTF-8 LC_TIME=de_DE.UTF-8", "0", "01.01.1970, 00:00:00"},
        {"LANG=en_US.UTF-8 LC_TIME=en_US LC_ALL=de_DE", "-1", "31.12.1969, 23:59:59"},
        {"LANGUAGE=de LANG=en_US.UTF-8", "0", "Jan 1, 1970, 12:00:00 AM"},
        {"LC_ALL= LANG=C.UTF-8", "4294967296", "Feb 7, 2106, 06:28:16"},
        {"", "9223372036854775807", ""},
        {"", "-9223372036854775808", ""},
    };
    for (const Case& each : table)
        EXPECT_EQ(date(each.environment, each.seconds), each.text) << each.environment;
}

TEST(Appearance, FollowsThePortalAndThePaletteAndNeverWaitsForTheBus) {
    EXPECT_EQ(outputOf("dbus-run-session -- " PLATFORM_PROBE " appearance"), "at once, changed, changed, dark");
}

} // namespace
} // namespace fv2::test
