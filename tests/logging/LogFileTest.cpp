// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/LogFile.h"

#include "support/LogScope.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace fv2::test {
namespace {

TEST(LogFile, IsMadeForItsOwnerAloneAndGrowsLineByLine) {
    const TemporaryFolder folder;
    const mode_t previous = ::umask(0);
    EXPECT_TRUE(appendToLogFile(folder / "log", "one\n"));
    ::umask(previous);
    EXPECT_TRUE(appendToLogFile(folder / "log", "two\n"));
    EXPECT_EQ(contentOf(folder / "log"), "one\ntwo\n");
    struct stat status {};
    EXPECT_EQ(::stat((folder / "log").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    EXPECT_TRUE(deleteLogFile(folder / "log"));
    EXPECT_FALSE(deleteLogFile(folder / "log"));
}

TEST(LogFile, RefusesWhatIsNoRegularFileOfItsOwn) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    std::ofstream(folder / "target") << "untouched";
    std::filesystem::create_symlink(folder / "target", folder / "link");
    std::filesystem::create_symlink(folder / "nothing", folder / "dangling");
    ::mkfifo((folder / "pipe").c_str(), 0600);
    ::mkfifo((folder / "read pipe").c_str(), 0600);
    const int reader = ::open((folder / "read pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const auto before = openDescriptors();
    for (const char* name : {"folder", "link", "dangling", "pipe", "read pipe", "missing/log"})
        EXPECT_FALSE(appendToLogFile(folder / name, "text")) << name;
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(contentOf(folder / "target"), "untouched");
    EXPECT_FALSE(std::filesystem::exists(folder / "nothing"));
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
    char byte = 0;
    EXPECT_LT(::read(reader, &byte, 1), 1);
    ::close(reader);
}

TEST(LogFile, TakesBackTheHalfLineOfAFullDisk) {
    const TemporaryFolder folder;
    const std::string path = folder / "log";
    const auto inAFileOf100Bytes = [&path] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const bool fits = appendToLogFile(path, std::string(90, 'a'));
        const bool tooLong = appendToLogFile(path, std::string(50, 'b'));
        const bool fitsAgain = appendToLogFile(path, std::string(10, 'c'));
        return fits && !tooLong && fitsAgain ? 0 : 1;
    };
    EXPECT_EQ(inChild(inAFileOf100Bytes), 0);
    EXPECT_EQ(contentOf(path), std::string(90, 'a') + std::string(10, 'c'));
}

TEST(LogFile, LiesInTheHomeDirectory) {
    const LogScope home;
    ::setenv("HOME", "/some/home", 1);
    EXPECT_EQ(logFilePath(), "/some/home/logs/mac-fv2-ui.log");
    ::setenv("HOME", "relative", 1);
    EXPECT_EQ(logFilePath().front(), '/') << "the password database knows better";
    ::unsetenv("HOME");
    EXPECT_EQ(logFilePath().front(), '/');
}

} // namespace
} // namespace fv2::test
