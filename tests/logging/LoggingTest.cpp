// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/Deadline.h"
#include "base/UniqueFd.h"
#include "logging/LogEscape.h"
#include "logging/SystemReport.h"
#include "support/Faults.h"
#include "support/LogScope.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <limits>
#include <optional>
#include <regex>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <syslog.h>
#include <tuple>

using namespace std::string_view_literals;

namespace {
std::string ident;
std::pair<int, std::array<char, 100>> sent;
sockaddr_un journal{AF_UNIX, {}}; // none unless it has a path
} // namespace

// Replaces the C library's: these tests write nothing to the machine's log.
extern "C" {

int access(const char*, int) { // whether there is a journal
    return journal.sun_path[0] == '\0' ? -1 : 0;
}

ssize_t sendmsg(int socket, const msghdr* message, int flags) {
    msghdr toOurs = *message;
    toOurs.msg_name = &journal;
    toOurs.msg_namelen = sizeof journal;
    return ::syscall(SYS_sendmsg, socket, &toOurs, flags);
}

void openlog(const char* name, int, int) {
    ident = name;
}

#if __USE_FORTIFY_LEVEL > 0
void __syslog_chk(int priority, int, const char* format, ...) {
#else
void syslog(int priority, const char* format, ...) {
#endif
    va_list arguments;
    va_start(arguments, format);
    sent.first = priority;
    std::vsnprintf(sent.second.data(), sent.second.size(), format, arguments);
    va_end(arguments);
}
}

namespace fv2::test {
namespace {

using Level = FV2LoggingLevel;

//! `text` with "now" for the times of day.
std::string withoutTime(const std::string& text) {
    return std::regex_replace(text, std::regex(R"(\d\d:\d\d:\d\d\.\d{3} )"), "now ");
}

//! What one line to the logger writes to standard output.
std::string consoleOf(FV2Logging& logger, Level level, std::initializer_list<FV2LogItem> items,
                      std::string_view separator = " ", std::string_view terminator = "\n") {
    testing::internal::CaptureStdout();
    logger.log(level, items, separator, terminator);
    return withoutTime(testing::internal::GetCapturedStdout());
}

TEST(FV2Logging, LetsALinePassWithAllItsBitsAndTypesTheSystemLogByTheConfiguredOnes) {
    // The levels let through, the line's own, its prefix if it passes, the type.
    const std::vector<std::tuple<int, int, std::string, int>> table{
        {8, 8, "release", LOG_INFO}, {8, 1, "", LOG_INFO},          {8, 12, "", LOG_INFO},
        {7, 8, "", LOG_INFO},        {12, 12, "unknown", LOG_INFO}, {12, 4, "error", LOG_INFO},
        {5, 1, "trace", LOG_ERR},    {3, 3, "unknown", LOG_DEBUG},  {2, 2, "ui", LOG_DEBUG}};
    for (const auto& [levels, line, name, priority] : table) {
        const LogScope home;
        FV2Logging logger{Level(levels)};
        const std::string expected = name.empty() ? "" : "1) now [" + name + "] text \n";
        EXPECT_EQ(consoleOf(logger, Level(line), {"text"}), expected) << levels;
        EXPECT_EQ(withoutTime(home.text()), expected) << levels;
        logger.logToSystem("100%s \n done");
        EXPECT_EQ(sent.first, priority) << levels;
        EXPECT_EQ(withoutTime(sent.second.data()), std::string(name.empty() ? "" : "1) now ") + R"(100%s \n done)");
    }
    EXPECT_EQ(ident, "fv2-agent");
}

TEST(FV2Logging, WritesValuesAsTheyAreOnOneLineAndItsTerminatorToTheFileAlone) {
    const LogScope home;
    FV2Logging logger(Level::release);
    const std::string line = R"(1) now [release] a\nb-5-true--0.25--9223372036854775808-18446744073709551615-)";
    EXPECT_EQ(consoleOf(logger, Level::release,
                        {"a\nb", 5, true, -0.25, std::numeric_limits<std::int64_t>::min(),
                         std::numeric_limits<std::uint64_t>::max()},
                        "-", "|"),
              line + "\n");
    EXPECT_EQ(withoutTime(home.text()), line + "|");
    EXPECT_EQ(FV2Logging::timeStamp({0, 7'999'999}).substr(5), ":00.007") << "cut, not rounded";
}

//! How many lines `text` accounts for, those that it calls dropped among them; -1 when it has something else in it.
int linesIn(const std::string& text) {
    const std::regex whole(R"(\d+\) \S+ \[release\] x+ )");
    int all = 0;
    std::istringstream lines(text.substr(0, text.rfind('\n') + 1));
    for (std::string line; std::getline(lines, line);) {
        if (line.back() == '\r')
            line.pop_back();
        int dropped = 0;
        if (std::sscanf(line.c_str(), "(%d lines dropped)", &dropped) == 1)
            all += dropped;
        else if (std::regex_match(line.substr(0, 300) + line.back(), whole))
            ++all;
        else
            return -1;
    }
    return all;
}

//! Eight threads log while nobody reads, one while somebody does: what is wrong with what is read, 0 for nothing.
int writeToUnreadOutput(const std::string& kind, bool mayOpen) {
    std::array<int, 2> ends{};
    if (kind == "terminal") {
        ends[0] = ::posix_openpt(O_RDWR | O_NOCTTY);
        ::unlockpt(ends[0]);
        ends[1] = ::open(::ptsname(ends[0]), O_RDWR | O_NOCTTY, 0);
    } else if (kind == "socket") {
        ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data());
    } else if (::pipe(ends.data()) == 0 && kind == "pipe closed") {
        ::close(ends[0]);
    }
    ::dup2(ends[1], STDOUT_FILENO);
    FV2Logging logger(Level::release);
    const auto log = [&logger](std::size_t size) { logger.log(Level::release, {std::string(size, 'x')}, " ", "\n"); };
    {
        const Faults faults(mayOpen ? std::vector<Fault>() : std::vector<Fault>{{"open", EACCES}});
        log(300);
    }
    std::vector<std::jthread> threads(8);
    for (std::jthread& thread : threads)
        thread = std::jthread([&log] {
            for (int line = 0; line < 50; ++line)
                log(line == 0 ? 70'000 : 300);
        });
    threads.clear();
    if ((::fcntl(ends[1], F_GETFL) & O_NONBLOCK) != 0)
        return 1;
    if (kind == "pipe closed")
        return 0;
    ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
    std::string got;
    std::array<char, 4096> chunk{};
    for (int logged = 401; logged < 600; ++logged) {
        ::usleep(1000);
        for (ssize_t count = 0; (count = ::read(ends[0], chunk.data(), chunk.size())) > 0;)
            got.append(chunk.data(), static_cast<std::size_t>(count));
        if (linesIn(got) == logged)
            return 0;
        log(300);
    }
    return linesIn(got) < 0 ? 2 : 3;
}

//! What stands in place of standard output, and of which the system may allow no description of our own.
TEST(FV2Logging, KeepsTheLinesOfManyThreadsApartAndNeverStallsOnAnOutputThatNobodyReads) {
    for (const std::string kind : {"pipe", "pipe closed", "terminal", "socket"})
        for (const bool mayOpen : {true, false}) {
            const LogScope home;
            EXPECT_EQ(inChild([&] { return writeToUnreadOutput(kind, mayOpen); }), 0) << kind << mayOpen;
            EXPECT_GE(linesIn(home.text()), 401) << "the file has every line";
            EXPECT_NE(home.text().find("\n9) "), std::string::npos) << "a number for each thread";
        }
}

TEST(SystemLog, GivesTheJournalWholeEntriesAndHardlyWaitsForOneThatDoesNotRead) {
    const TemporaryFolder folder;
    (folder / "journal").copy(journal.sun_path, sizeof journal.sun_path - 1);
    const UniqueFd reader(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0));
    ASSERT_EQ(::bind(reader.get(), reinterpret_cast<sockaddr*>(&journal), sizeof journal), 0);
    std::array<char, 200> entry{};
    const auto next = [&] {
        const ssize_t size = ::recv(reader.get(), entry.data(), entry.size(), 0);
        return std::string(entry.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    };
    systemLog(fv2SystemLogType::error, "100% \U0001F512", "0123");
    EXPECT_EQ(next(), "MESSAGE=100% \U0001F512\nPRIORITY=3\nSYSLOG_IDENTIFIER=fv2-agent\nMESSAGE_ID=0123\n");
    sent.first = 0;
    const Deadline late(std::chrono::seconds(2));
    for (int line = 0; line < 5000; ++line)
        systemLog(fv2SystemLogType::debug, "");
    for (int line = 0; line < 5; ++line)
        systemLog(fv2SystemLogType::error, "");
    EXPECT_FALSE(late.passed());
    while (!next().empty()) {
    }
    systemLog(fv2SystemLogType::error, "read again");
    EXPECT_EQ(next(), "MESSAGE=read again\nPRIORITY=3\nSYSLOG_IDENTIFIER=fv2-agent\n");
    EXPECT_EQ(sent.first, 0) << "nothing was left to syslog";
    journal.sun_path[0] = '\0';
}

TEST(ReportOnce, TellsEachCauseOnceAndAFloodOfThemNotForEver) {
    reportOnce("first", "what \u202E " + std::string(100'000, 'x'));
    EXPECT_EQ(sent.first, LOG_ERR);
    EXPECT_EQ(std::string_view(sent.second.data()).substr(0, 15), R"(what \u202e xxx)");
    int told = 0;
    for (int report = 0; report < 1000; ++report) {
        sent.first = 0;
        reportOnce(report < 10 ? "first" : std::to_string(report), "again");
        EXPECT_TRUE(report >= 10 || sent.first == 0);
        told += sent.first == 0 ? 0 : 1;
    }
    EXPECT_EQ(told, 63);
}

TEST(EscapedForLog, ShowsWhatCouldBreakALineOrSteerATerminal) {
    const std::vector<std::pair<std::string_view, std::string_view>> table{
        {"\\ \"~ caf\u00E9 \u20AC \U0001F512 \U0010FFFF", "\\ \"~ caf\u00E9 \u20AC \U0001F512 \U0010FFFF"},
        {"a\nb\tc\rd\0x\x1B[2J\x7F\x80\xE2\x80\n\xE2\x82"sv, R"(a\nb\tc\x0dd\x00x\x1b[2J\x7f\x80\xe2\x80\n\xe2\x82)"},
        {"\xC2\x85\xC2\x9B 31m\u00A0\u2027\u2028\u2029\u2030", "\\u0085\\u009b 31m\u00A0\u2027\\u2028\\u2029\u2030"},
        {"\xC0\x8A \xC1\xBF \xE0\x80\x8A \xF0\x80\x80\x8A", R"(\xc0\x8a \xc1\xbf \xe0\x80\x8a \xf0\x80\x80\x8a)"},
        {"\xED\xA0\x80 \xED\xBF\xBF \xEE\x80\x80", "\\xed\\xa0\\x80 \\xed\\xbf\\xbf \uE000"},
        {"\u202Eexe\u202C \u2066\u2069\u200F\u061C\u200B\U000E0041",
         R"(\u202eexe\u202c \u2066\u2069\u200f\u061c\u200b\ue0041)"},
        {"\xF4\x90\x80\x80 \xF5\x80\x80\x80\xFF", R"(\xf4\x90\x80\x80 \xf5\x80\x80\x80\xff)"}};
    for (const auto& [text, escaped] : table)
        EXPECT_EQ(escapedForLog(text), escaped);
}

TEST(FV2Logging, DropsWhatTheSystemRefusesToTakeAndNothingElse) {
    // What fails, then whether the line under it reaches standard output and the file; the next one reaches both.
    const std::vector<std::tuple<std::vector<Fault>, std::string, std::string>> table{
        {{{"write", EINTR, 1, 50}}, "b", "b"},
        {{{"write", Fault::kShort, 1, 3}}, "b", "b"},
        {{{"write", EPIPE}}, "", "b"},
        {{{"write", EINTR, 2, 50}}, "b", "b"},
        {{{"write", Fault::kShort, 2, 3}}, "b", "b"},
        {{{"write", ENOSPC, 2}}, "b", ""},
        {{{"write", Fault::kShort, 2}, {"write", ENOSPC, 3}}, "b", ""}, // takes half a line back
        {{{"write", Fault::kShort, 2}, {"write", EIO, 3}, {"ftruncate", EIO}}, "b", "half"},
        {{{"write", Fault::kShort, 2}, {"write", EIO, 3}, {"statx", EIO, 2}}, "b", "half"},
        {{{"open", EMFILE}}, "b", ""},
        {{{"open", EINTR}}, "b", ""},
        {{{"statx", EIO}}, "b", ""},
        {{{"close", EIO}}, "b", "b"},
        {{{"unlink", EROFS}}, "b", "b"}};
    const auto before = openDescriptors();
    for (const auto& [plan, console, file] : table) {
        const LogScope home;
        FV2Logging logger(Level::release);
        const auto lineOf = [](const std::string& letter) { return "1) now [release] " + letter + " \n"; };
        std::optional<Faults> faults;
        testing::internal::CaptureStdout();
        faults.emplace(plan);
        logger.log(Level::release, {"b"}, " ", "\n");
        if (plan.front().call == "unlink")
            FV2Logging::deleteLogFile();
        const bool happened = faults->happened();
        faults.reset();
        EXPECT_EQ(withoutTime(testing::internal::GetCapturedStdout()), console.empty() ? "" : lineOf("b"))
            << plan.back();
        EXPECT_TRUE(happened) << plan.back();
        EXPECT_EQ(consoleOf(logger, Level::release, {"c"}),
                  (console.empty() ? "(1 lines dropped)\n" : "") + lineOf("c"))
            << plan.back();
        const std::string kept = file.empty() ? "" : file == "half" ? "1)" : lineOf("b");
        EXPECT_EQ(withoutTime(home.text()), kept + lineOf("c")) << plan.back();
        FV2Logging::deleteLogFile();
        EXPECT_EQ(home.text(), "") << "deleted the next time";
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(LogFile, IsItsOwnersAloneInTheHomeDirectory) {
    const LogScope home;
    const auto withoutMaskUpToItsLimit = [] {
        ::umask(0);
        outliveFileSizeLimit();
        const rlimit small{10, 10};
        ::setrlimit(RLIMIT_FSIZE, &small);
        return appendToLogFile(logFilePath(), "text") && !appendToLogFile(logFilePath(), "longer text") ? 0 : 1;
    };
    EXPECT_EQ(inChild(withoutMaskUpToItsLimit), 0);
    EXPECT_EQ(home.text(), "text");
    struct stat status {};
    EXPECT_EQ(::stat(logFilePath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    const std::string path = logFilePath();
    ::setenv("HOME", "relative", 1);
    EXPECT_EQ(logFilePath(), path) << "remembered";
    rememberLogFilePath();
    EXPECT_EQ(logFilePath().front(), '/') << "the password database knows better";
}

TEST(LogFile, RefusesWhatIsNoRegularFileOfItsOwn) {
    const TemporaryFolder folder;
    std::ofstream(folder / "target") << "untouched";
    std::filesystem::create_symlink(folder / "target", folder / "link");
    std::filesystem::create_symlink(folder / "nothing", folder / "dangling");
    std::filesystem::create_hard_link(folder / "target", folder / "second name");
    ::mkfifo((folder / "pipe").c_str(), 0600);
    const auto before = openDescriptors();
    for (const std::string& path : {folder / "", folder / "link", folder / "dangling", folder / "second name",
                                    folder / "pipe", folder / "missing/log", std::string("/dev/null")})
        EXPECT_FALSE(appendToLogFile(path, "text")) << path;
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(contentOf(folder / "target"), "untouched");
    EXPECT_FALSE(std::filesystem::exists(folder / "nothing") || std::filesystem::exists(folder / "missing"));
}

} // namespace
} // namespace fv2::test
