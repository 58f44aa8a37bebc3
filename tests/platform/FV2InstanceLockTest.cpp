// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2InstanceLock.h"

#include "base/Deadline.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <sys/mman.h>
#include <vector>

namespace fv2::test {
namespace {

using Attempt = FV2InstanceLock::Attempt;

//! What processes tell one another.
struct Shared {
    std::atomic<int> taken{0}, refused{0};
};

//! Tries to take the lock once the stream to `start` ends, and then lives on until killed.
[[noreturn]] void contend(const std::string& path, int start, Shared& shared) {
    ::alarm(20);
    char none = 0;
    const ssize_t ended = ::read(start, &none, 1);
    FV2InstanceLock lock(path);
    const Attempt attempt = ended == 0 ? lock.tryTake() : Attempt::Impossible;
    shared.taken += attempt == Attempt::Taken ? 1 : 0;
    shared.refused += attempt == Attempt::HeldByOther ? 1 : 0;
    for (;;)
        ::pause();
}

TEST(InstanceLock, IsHadByOneOfTwoHundredAndFreeOnceThatOneIsKilled) {
    const TemporaryFolder folder;
    const std::string path = folder / "lock";
    void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    auto& shared = *new (memory) Shared;
    std::array<int, 2> start{};
    ASSERT_EQ(::pipe2(start.data(), O_CLOEXEC), 0);
    std::vector<pid_t> children(200);
    for (pid_t& child : children) {
        child = ::fork();
        if (child == 0) {
            ::close(start[1]);
            contend(path, start[0], shared);
        }
    }
    ::close(start[1]);
    for (const Deadline deadline(std::chrono::seconds(15)); shared.taken + shared.refused < 200 && !deadline.passed();)
        ::usleep(1000);
    EXPECT_EQ(shared.taken.load(), 1);
    EXPECT_EQ(shared.refused.load(), 199);

    FV2InstanceLock lock(path);
    EXPECT_EQ(lock.tryTake(), Attempt::HeldByOther);
    for (const pid_t child : children) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    EXPECT_EQ(lock.tryTake(), Attempt::Taken);
    EXPECT_EQ(FV2InstanceLock(path).tryTake(), Attempt::HeldByOther);
    ::munmap(memory, sizeof(Shared));
    ::close(start[0]);
}

TEST(InstanceLock, GoesWithItsObjectAndIsNotInherited) {
    const TemporaryFolder folder;
    const std::set<int> before = openDescriptors(true);
    for (int i = 0; i < 2; ++i) {
        FV2InstanceLock lock(folder / "lock");
        EXPECT_EQ(lock.tryTake(), Attempt::Taken);
        EXPECT_EQ(openDescriptors(true), before);
    }
    EXPECT_EQ(std::filesystem::status(folder / "lock").permissions(), std::filesystem::perms(0600));
}

TEST(InstanceLock, IsImpossibleWhereTheFileIsNotOurOwn) {
    const TemporaryFolder folder;
    std::ofstream(folder / "target") << "content";
    std::filesystem::create_symlink(folder / "target", folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    std::filesystem::create_directory(folder / "folder");
    // Root can open everybody's files, everybody else can see one of root's.
    std::ofstream(folder / "strange") << "";
    const std::string strangers =
        ::chown((folder / "strange").c_str(), ::getuid() + 1, ::getgid()) == 0 ? folder / "strange" : "/etc/passwd";
    for (const std::string& path :
         {folder / "link", folder / "dangling", folder / "folder", strangers, folder / "missing/lock", std::string()})
        EXPECT_EQ(FV2InstanceLock(path).tryTake(), Attempt::Impossible) << path;
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
    EXPECT_EQ(FV2InstanceLock(folder / "target").tryTake(), Attempt::Taken);
    EXPECT_EQ(contentOf(folder / "target"), "content");
}

TEST(InstanceLock, LivesInTheRuntimeFolderOrBesideTheSocket) {
    const std::string runtime = std::getenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(FV2InstanceLock::defaultPath(), runtime + "/fv2-agent.lock");
    const std::string beside = "/tmp/ormfv2_ui_" + std::to_string(::getuid()) + ".lock";
    const TemporaryFolder folder;
    std::ofstream(folder / "file") << "";
    std::filesystem::create_directory(folder / "strange");
    const bool given = ::chown((folder / "strange").c_str(), ::getuid() + 1, ::getgid()) == 0;
    for (const std::string& unusable : {std::string(), std::string("."), folder / "missing", folder / "file",
                                        given ? folder / "strange" : std::string("/")}) {
        ::setenv("XDG_RUNTIME_DIR", unusable.c_str(), 1);
        EXPECT_EQ(FV2InstanceLock::defaultPath(), beside) << unusable;
    }
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(FV2InstanceLock::defaultPath(), beside);
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
}

} // namespace
} // namespace fv2::test
