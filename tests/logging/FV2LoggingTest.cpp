// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/FV2Logging.h"

#include "base/UniqueFd.h"
#include "support/LogScope.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <map>
#include <regex>
#include <thread>

namespace fv2::test {
namespace {

using Level = FV2LoggingLevel;

const std::string kPrefix = R"((\d+)\) \d\d:\d\d:\d\d\.\d{3} )";

//! What `job` writes to standard output.
std::string consoleOf(const std::function<void()>& job) {
    const TemporaryFolder folder;
    const UniqueFd file(::open((folder / "out").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    {
        const StandardOutputTo redirected(file.get());
        job();
    }
    return contentOf(folder / "out");
}

TEST(FV2Logging, WritesOneLineToConsoleAndFile) {
    const LogScope home;
    FV2Logging logger(Level::release);
    const std::string console = consoleOf([&] { logger.log(Level::release, {"a", 5, true, 0.5}, " ", "\n"); });
    EXPECT_TRUE(std::regex_match(console, std::regex(kPrefix + R"(\[release\] a 5 true 0\.5 )" + "\n"))) << console;
    EXPECT_EQ(home.text(), console);

    FV2Logging::deleteLogFile();
    const std::string ended = consoleOf([&] { logger.log(Level::release, {"x\ny", std::string("z")}, "-", "|"); });
    EXPECT_TRUE(std::regex_match(ended, std::regex(kPrefix + R"(\[release\] x\\ny-z-)" + "\n"))) << ended;
    EXPECT_EQ(home.text() + "\n", ended.substr(0, ended.size() - 1) + "|\n") << "the terminator ends the file's line";
}

TEST(FV2Logging, WritesNumbersAsTheyAre) {
    const LogScope home;
    FV2Logging logger(Level::release);
    consoleOf([&] {
        logger.log(Level::release,
                   {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::uint64_t>::max(), -0.25}, " ",
                   "");
    });
    EXPECT_NE(home.text().find("] -9223372036854775808 18446744073709551615 -0.25 "), std::string::npos) << home.text();
}

TEST(FV2Logging, LetsALinePassWhenAllItsBitsAreLetThrough) {
    struct Case {
        std::int64_t levels, line;
        bool passes;
        std::string printed;
    };
    const std::vector<Case> table{{8, 8, true, "release"}, {8, 1, false, ""},         {8, 12, false, ""},
                                  {4, 12, false, ""},      {12, 12, true, "unknown"}, {12, 4, true, "error"},
                                  {3, 3, true, "unknown"}, {15, 2, true, "ui"},       {7, 8, false, ""},
                                  {1, 1, true, "trace"}};
    for (const Case& each : table) {
        const LogScope home;
        FV2Logging logger{Level(each.levels)};
        const std::string console = consoleOf([&] { logger.log(Level(each.line), {"text"}, " ", "\n"); });
        EXPECT_EQ(!console.empty(), each.passes) << each.levels << " " << each.line;
        EXPECT_EQ(console, home.text());
        EXPECT_NE(console.find(each.passes ? "[" + each.printed + "] text \n" : ""), std::string::npos) << console;
    }
}

TEST(FV2Logging, IsSilentAsTheSharedLoggerUntilWidened) {
    const LogScope home;
    const auto logAll = [] {
        for (int level = 1; level < 16; ++level)
            log(Level(level), {"text"});
    };
    EXPECT_EQ(consoleOf(logAll), "");
    EXPECT_EQ(home.text(), "");
    FV2Logging::shared().setLevels(Level::ui);
    EXPECT_TRUE(std::regex_match(consoleOf(logAll), std::regex(kPrefix + R"(\[ui\] text )" + "\n")));
}

TEST(FV2Logging, CutsTheTimeToMilliseconds) {
    tm local{};
    local.tm_year = 124;
    local.tm_mday = 17;
    local.tm_hour = 9;
    local.tm_min = 5;
    local.tm_sec = 3;
    local.tm_isdst = -1;
    const time_t seconds = ::mktime(&local);
    EXPECT_EQ(FV2Logging::timeStamp({seconds, 7'999'999}), "09:05:03.007");
    EXPECT_EQ(FV2Logging::timeStamp({seconds, 999'999'999}), "09:05:03.999");
}

TEST(FV2Logging, KeepsTheLinesOfManyThreadsApart) {
    constexpr int kThreads = 8;
    constexpr int kLines = 50;
    const LogScope home;
    FV2Logging logger(Level::release);
    const std::string console = consoleOf([&] {
        logger.log(Level::release, {std::string(300, 'x'), 0}, " ", "\n");
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < kThreads; ++thread)
            threads.emplace_back([&] {
                for (int line = 0; line < kLines; ++line)
                    logger.log(Level::release, {std::string(300, 'x'), line}, " ", "\n");
            });
    });
    EXPECT_EQ(console, home.text());
    const std::regex whole(kPrefix + R"(\[release\] x{300} (\d+) )");
    std::map<int, int> linesOf;
    std::istringstream lines(console);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(line, match, whole)) << line;
        EXPECT_EQ(std::stoi(match[2]), linesOf[std::stoi(match[1])]++) << "each thread in its own order";
    }
    EXPECT_EQ(linesOf.size(), kThreads + 1U) << "a number for each thread";
    EXPECT_EQ(linesOf[1], 1) << "the main thread's is 1";
}

//! The exit status of a child that logs `count` lines of `size` bytes into a pipe, whose reading end is closed or never
//! read.
int loggingInto(bool closed, std::size_t size, int count) {
    return inChild([=] {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            return 1;
        if (closed)
            ::close(ends[0]);
        ::dup2(ends[1], STDOUT_FILENO);
        FV2Logging logger(Level::release);
        for (int line = 0; line < count; ++line)
            logger.log(Level::release, {std::string(size, 'x')}, " ", "\n");
        return 0;
    });
}

TEST(FV2LoggingConsole, NeverStallsOnAPipeThatNobodyReads) {
    const LogScope home;
    EXPECT_EQ(loggingInto(false, 200, 1000), 0);
    const std::string text = home.text();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1000) << "the file has every line";
    EXPECT_EQ(loggingInto(false, 100'000, 3), 0) << "lines longer than the pipe";
}

TEST(FV2LoggingConsole, SurvivesAReaderThatWentAway) {
    const LogScope home;
    EXPECT_EQ(loggingInto(true, 200, 3), 0);
    const std::string text = home.text();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
}

TEST(FV2LoggingConsole, PrintsAlsoWhenTheFolderOfTheFileIsMissing) {
    const LogScope home;
    std::filesystem::remove(std::filesystem::path(logFilePath()).parent_path());
    FV2Logging logger(Level::release);
    EXPECT_NE(consoleOf([&] { logger.log(Level::release, {"text"}, " ", "\n"); }).find("text"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(logFilePath()).parent_path()));
}

} // namespace
} // namespace fv2::test
