// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// What the rooms above don't test by using it: they cover descriptors, queue and workers.
#include "base/CountingSemaphore.h"
#include "base/SecretText.h"
#include "base/StopSignal.h"
#include "base/WorkerPool.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <fcntl.h>
#include <fstream>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <thread>

using namespace std::chrono_literals;

namespace fv2::test {

TEST(Waits, GoOnAfterInterruptionsAndTellWhyTheyEnded) {
    const StopSignal stop;
    const StopSignal peer;
    CountingSemaphore semaphore(0);
    std::jthread other([&semaphore] {
        std::this_thread::sleep_for(30ms);
        semaphore.signal();
    });
    const SignalStorm storm;
    semaphore.wait();
    other.join();
    EXPECT_EQ(semaphore.count(), 0) << "an interruption is no signal";

    const Deadline deadline(50ms);
    EXPECT_EQ(stop.waitFor(peer.descriptor(), POLLIN, deadline), fv2Wait::TimedOut);
    EXPECT_TRUE(deadline.passed());
    EXPECT_EQ(stop.waitFor(peer.descriptor(), POLLIN, Deadline(-1h)), fv2Wait::TimedOut) << "and waits no more";
    peer.raise();
    EXPECT_EQ(stop.waitFor(peer.descriptor(), POLLIN, Deadline(-1h)), fv2Wait::Ready) << "what is there needs no time";
    stop.raise();
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(stop.waitFor(peer.descriptor(), POLLIN, Deadline(5s)), fv2Wait::Stopped) << "goes first and stays";
}

//! As a user at the limit of processes: root has no limit.
int runAJobAtTheLimit() {
    if (::getuid() == 0 && ::setuid(65534) != 0)
        return 1;
    rlimit limit{};
    ::getrlimit(RLIMIT_NPROC, &limit);
    const rlimit none{0, limit.rlim_max};
    ::setrlimit(RLIMIT_NPROC, &none);
    WorkerPool pool(2);
    CountingSemaphore ran(0);
    if (pool.post([&ran] { ran.signal(); }) || pool.makeThreads() || ran.tryWait())
        return 2;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NPROC, &limit);
    return pool.makeThreads() && ran.waitUntil(Deadline(2s)) && pool.finish(Deadline(2s)) ? 0 : 3;
}

TEST(WorkerPool, RunsItsJobsOnceTheSystemHasThreadsAgain) {
    EXPECT_EQ(inChild(runAJobAtTheLimit), 0);
}

//! The marks of the memory map that an address lies in, as the kernel shows them.
std::string memoryMarks(const void* place) {
    std::ifstream maps("/proc/self/smaps");
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    bool inside = false;
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        if (std::sscanf(line.c_str(), "%lx-%lx ", &start, &end) == 2)
            inside = start <= address && address < end;
        else if (inside && line.starts_with("VmFlags:"))
            return line + " ";
    }
    return {};
}

//! From now on this thread's kernel has no secret pages.
void forbidSecretPages() {
    std::array filter{sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                      sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_memfd_secret, 0, 1),
                      sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
                      sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program{filter.size(), filter.data()};
    ASSERT_EQ(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
    ASSERT_EQ(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

void useSecretText() {
    const auto isOpen = [] { return ::prctl(PR_GET_DUMPABLE) == 1; };
    ASSERT_TRUE(isOpen());
    SecretText secret(8);
    EXPECT_TRUE(secret.append("") && isOpen());
    EXPECT_TRUE(secret.append("abcdef"));
    const char* const bytes = secret.text().data();
    for (const char* const mark : {" dd ", " dc "})
        EXPECT_NE(memoryMarks(bytes).find(mark), std::string::npos) << mark << memoryMarks(bytes);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // under which nothing can be locked
    EXPECT_NE(memoryMarks(bytes).find(" lo "), std::string::npos);
#endif
    struct Case {
        std::size_t position, count;
        std::string_view text, expected;
        bool fits = true;
    };
    for (const auto& [position, count, text, expected, fits] : std::vector<Case>{{2, 2, "", "abef"},
                                                                                 {0, 0, "12", "12abef"},
                                                                                 {6, 0, "34", "12abef34"},
                                                                                 {3, 1, "56", "12abef34", false},
                                                                                 {3, 2, "56", "12a56f34"},
                                                                                 {7, 100, "xy", "12a56f34", false},
                                                                                 {100, 1, "", "12a56f34"},
                                                                                 {1, 100, "z", "1z"}}) {
        EXPECT_EQ(secret.replace(position, count, text), fits);
        EXPECT_EQ(secret.text(), expected);
        EXPECT_EQ(std::string_view(bytes + secret.size(), 8 - secret.size()), std::string(8 - secret.size(), '\0'));
    }
    SecretText other = std::move(secret);
    SecretText second(std::string_view("x"));
    EXPECT_FALSE(secret.append("x")) << "it has no room any more"; // NOLINT(bugprone-use-after-move)
    other.wipe();
    EXPECT_EQ(memoryMarks(bytes), "") << "its pages are given back, empty or not they would keep a computer awake";
    EXPECT_TRUE(other.append("again"));
    other.wipe();
    EXPECT_FALSE(isOpen());
    second = SecretText(1);
    EXPECT_TRUE(isOpen());
    ::prctl(PR_SET_DUMPABLE, 0);
    second.append("x");
    second.wipe();
    EXPECT_FALSE(isOpen()) << "it was closed before";
    ::prctl(PR_SET_DUMPABLE, 1);
}

TEST(SecretText, LeavesNothingBehindAndKeepsTheProcessClosedWhileItHoldsAByte) {
    const UniqueFd memory(::open("/proc/self/mem", O_RDONLY | O_CLOEXEC));
    const auto canBeRead = [&memory] {
        const SecretText secret("x");
        char byte = 0;
        return ::pread(memory.get(), &byte, 1,
                       static_cast<off_t>(reinterpret_cast<std::uintptr_t>(secret.text().data()))) == 1;
    };
    const bool hasSecretPages = UniqueFd(static_cast<int>(::syscall(SYS_memfd_secret, 0))).isOpen();
    EXPECT_EQ(canBeRead(), !hasSecretPages);
    useSecretText();
    std::jthread([&canBeRead] {
        forbidSecretPages();
        EXPECT_TRUE(canBeRead());
        useSecretText();
    });
}

} // namespace fv2::test
