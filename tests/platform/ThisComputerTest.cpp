// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ThisComputer.h"
#include "platform/FV2ThisProcess.h"
#include "platform/FV2ThisUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fv2::test {
namespace {

TEST(ComputerName, IsThePrettyHostNameOrElseTheHostName) {
    std::array<char, 256> name{};
    ASSERT_EQ(::gethostname(name.data(), name.size()), 0);
    const std::string host = name.data();
    const std::pair<std::string, std::string> table[] = {
        {R"(PRETTY_HOSTNAME="a \"b\" \\ \$c")", R"(a "b" \ $c)"},
        {"PRETTY_HOSTNAME=\"\n", "\""},
        {"PRETTY_HOSTNAME=\"\"\n", host},
        {"#PRETTY_HOSTNAME=no\nNOT_PRETTY_HOSTNAME=no\nPRETTY_HOSTNAME_2=no\n", host},
    };
    const TemporaryFolder folder;
    for (const auto& [content, expected] : table) {
        std::ofstream(folder / "machine-info") << content;
        EXPECT_EQ(computerName(folder / "machine-info"), expected) << content;
    }
}

TEST(OsDescription, IsThePrettyNameOrNameAndVersion) {
    const std::pair<std::string, std::string> table[] = {
        {"NAME=\"A\"\nPRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n", "Debian GNU/Linux 12 (bookworm)"},
        {"PRETTY_NAME=\nNAME='Some Linux'\nVERSION=\"3 (x)\"\n", "Some Linux 3 (x)"},
        {"VERSION=3\n", "second"},
        {"NAME=\x1b\xff\u202e" + std::string(199, 'x') + "\u00fc\u00fc", std::string(199, 'x') + "\u00fc"},
    };
    const TemporaryFolder folder;
    std::ofstream(folder / "second") << "PRETTY_NAME=second\n";
    for (const auto& [content, expected] : table) {
        std::ofstream(folder / "first") << content;
        EXPECT_EQ(osDescription({folder / "first", folder / "second"}), expected) << content;
    }
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(osDescription({folder.path(), folder / "pipe", folder / "missing"}), "Linux");
}

TEST(MachineDescription, IsTheProcessorsNameOrTheReasonWhyThereIsNone) {
    const TemporaryFolder folder;
    std::ofstream(folder / "x86") << "processor\t: 0\nmodel\t\t: 85\nmodel name\t: Some CPU: fast @ 2.00GHz \n"
                                     "processor\t: 1\nmodel name\t: Another\n";
    EXPECT_EQ(std::get<std::string>(machineDescription(folder / "x86")).find("Some CPU: fast @ 2.00GHz ("), 0U);
    std::ofstream(folder / "arm") << "processor\t: 0\nBogoMIPS\t: 48.00\nmodel name\t:\n";
    for (const auto& [path, code] : {std::pair{folder / "arm", ENOENT}, {folder.path(), EISDIR}})
        EXPECT_EQ(std::get<SysctlError>(machineDescription(path)).code, code) << path;
}

TEST(MediumDate, IsInTheLocaleForTimesWhichTheFirstVariableThatIsSetNames) {
    constexpr std::int64_t day = 1'700'000'000;
    const auto date = [](const char* all, const char* time, const char* language) {
        ::setenv("LC_ALL", all, 1);
        ::setenv("LC_TIME", time, 1);
        ::setenv("LANG", language, 1);
        return mediumDate(day);
    };
    const std::string german = date("de_DE.UTF-8", "en_US", "en_US");
    const std::string english = date("", "", "en_US.UTF-8");
    EXPECT_NE(german, english);
    EXPECT_EQ(date("", "de_DE", "en_US"), german);
    EXPECT_EQ(date("", "", ""), english);
    EXPECT_EQ(mediumDate(INT64_MAX) + mediumDate(INT64_MIN), "");
    for (const char* const variable : {"LC_ALL", "LC_TIME", "LANG"})
        ::unsetenv(variable);
}

TEST(TimeFromNow, IsInTheWordsOfALanguageAndInUnitsThatPeopleUse) {
    EXPECT_EQ(timeFromNow(1, "en"), "in 1 minute");
    EXPECT_EQ(timeFromNow(60, "en"), "in 60 minutes");
    EXPECT_EQ(timeFromNow(150, "de"), "in 2,5 Stunden");
    EXPECT_EQ(timeFromNow(3 * 24 * 60, "de"), "in 3 Tagen");
    EXPECT_EQ(timeFromNow(22, "pl"), "za 22 minuty");
}

TEST(AccountName, IsThatOfTheProcessWhateverTheEnvironmentSays) {
    ::setenv("USER", "somebody", 1);
    const passwd* const entry = ::getpwuid(::getuid());
    EXPECT_EQ(accountName(), entry == nullptr ? "" : entry->pw_name);
}

TEST(Launcher, IsAFileManagerByItsExactName) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "7");
    for (const auto& [comm, expected] :
         {std::pair{"pcmanfm-qt\n", true}, {"pcmanfm-qt-old\n", false}, {"Nautilus\n", false}, {"", false}}) {
        std::ofstream(folder / "7/comm") << comm;
        EXPECT_EQ(launchedByFileManager(7, folder.path()), expected) << comm;
    }
}

} // namespace
} // namespace fv2::test
