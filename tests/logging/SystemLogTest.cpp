// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/FV2Logging.h"
#include "support/LogScope.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <regex>
#include <syslog.h>

namespace {

std::string ident;
std::vector<std::pair<int, std::string>> sent;

void record(int priority, const char* format, va_list arguments) {
    std::array<char, 512> text{};
    std::vsnprintf(text.data(), text.size(), format, arguments);
    sent.emplace_back(priority, text.data());
}

} // namespace

// In place of the C library's own: nothing of these tests reaches the machine's log.
extern "C" {

void openlog(const char* name, int, int) {
    ident = name;
}

void syslog(int priority, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    record(priority, format, arguments);
    va_end(arguments);
}

//! What a build with checked formats calls.
void __syslog_chk(int priority, int, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    record(priority, format, arguments);
    va_end(arguments);
}
}

namespace fv2::test {
namespace {

using Level = FV2LoggingLevel;

TEST(SystemLog, GetsPrefixAndContentWithTheTypeOfTheConfiguredLevels) {
    struct Case {
        Level levels, line;
        int priority;
    };
    const std::vector<Case> table{{{Level::release, Level::error}, Level::error, LOG_INFO},
                                  {{Level::error, Level::trace}, Level::trace, LOG_ERR},
                                  {Level::trace, Level::trace, LOG_DEBUG},
                                  {Level::ui, Level::ui, LOG_DEBUG},
                                  {Level::error, Level::release, LOG_INFO}};
    for (const Case& each : table) {
        const LogScope home;
        FV2Logging logger(each.levels);
        logger.log(each.line, {"before"}, " ", "\n");
        sent.clear();
        logger.logToSystem("100%s \n done");
        ASSERT_EQ(sent.size(), 1U);
        EXPECT_EQ(sent[0].first, each.priority) << each.levels.rawValue();
        const std::string prefix = each.levels.contains(each.line) ? R"(1\) \d\d:\d\d:\d\d\.\d{3} )" : "";
        EXPECT_TRUE(std::regex_match(sent[0].second, std::regex(prefix + R"(100%s \\n done)"))) << sent[0].second;
    }
    EXPECT_EQ(ident, "fv2-agent");
}

} // namespace
} // namespace fv2::test
