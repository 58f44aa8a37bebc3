// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/CountingSemaphore.h"
#include "base/MainQueue.h"
#include "base/StopSignal.h"
#include "base/WorkerPool.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <poll.h>
#include <sys/socket.h>
#include <thread>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

bool isOpen(int fd) {
    return ::fcntl(fd, F_GETFD) >= 0;
}

int newDescriptor() {
    return ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
}

TEST(UniqueFd, ClosesWhatItOwnsOnceItGoes) {
    const int first = newDescriptor();
    const int second = newDescriptor();
    UniqueFd moved;
    {
        UniqueFd owner(first);
        moved = std::move(owner);
        EXPECT_FALSE(owner.isOpen());
    }
    EXPECT_TRUE(isOpen(first));
    moved.reset(moved.get());
    EXPECT_TRUE(isOpen(first)) << "given what it has already";
    moved = UniqueFd(second);
    EXPECT_FALSE(isOpen(first));
    EXPECT_EQ(moved.release(), second);
    moved.reset();
    EXPECT_TRUE(isOpen(second)) << "given away";
    ::close(second);
}

TEST(UniqueFd, TakesDescriptorZeroForNone) {
    EXPECT_EQ(inChild([] {
                  { const UniqueFd zero(0); }
                  return isOpen(0) && !UniqueFd(0) ? 0 : 1;
              }),
              0);
}

TEST(Deadline, CountsDownToZeroAndNeverBelow) {
    const Deadline past(-1h);
    const Deadline future(1h);
    EXPECT_TRUE(past.passed());
    EXPECT_EQ(past.pollTimeout(), 0);
    EXPECT_FALSE(future.passed());
    EXPECT_NEAR(future.pollTimeout(), 3'600'000, 1000);
    EXPECT_EQ(Deadline(24h * 365).pollTimeout(), std::numeric_limits<int>::max());
    EXPECT_TRUE(Deadline::earlier(past, future).passed());
    EXPECT_TRUE(Deadline::earlier(future, past).passed());
}

TEST(CountingSemaphore, LetsInAsManyAsItCounts) {
    CountingSemaphore semaphore(1);
    {
        const SemaphoreHold hold(semaphore);
        EXPECT_FALSE(semaphore.tryWait());
    }
    EXPECT_EQ(semaphore.count(), 1);
    EXPECT_TRUE(semaphore.tryWait());

    std::atomic<bool> signalled = false;
    const std::jthread other([&] {
        SignalStorm::keepOffThisThread();
        std::this_thread::sleep_for(30ms);
        signalled = true;
        semaphore.signal();
    });
    const SignalStorm storm;
    semaphore.wait();
    EXPECT_TRUE(signalled) << "an interruption is no signal";
}

TEST(StopSignalWait, TellsWhyItEnded) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    const UniqueFd mine(ends[0]);
    UniqueFd other(ends[1]);
    const StopSignal stop;
    const int fd = mine.get();
    EXPECT_EQ(stop.waitFor(fd, POLLIN, Deadline(1ms)), fv2Wait::TimedOut);
    EXPECT_EQ(stop.waitFor(-1, POLLIN, Deadline(1ms)), fv2Wait::TimedOut);
    EXPECT_EQ(stop.waitFor(fd, POLLOUT, Deadline(5s)), fv2Wait::Ready);
    other.reset();
    EXPECT_EQ(stop.waitFor(fd, POLLIN, Deadline(5s)), fv2Wait::Ready) << "a hang-up is something to read";
    EXPECT_EQ(stop.waitFor(fd, POLLIN, Deadline(-1s)), fv2Wait::Ready) << "what is there needs no time";
    EXPECT_FALSE(stop.isRaised());
    stop.raise();
    EXPECT_TRUE(stop.isRaised());
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(stop.waitFor(fd, POLLIN, Deadline(5s)), fv2Wait::Stopped) << "stopping goes before reading and stays";
}

TEST(StopSignalWait, GoesOnAfterInterruptionsUntilItsDeadline) {
    const StopSignal stop;
    const SignalStorm storm;
    const auto begin = Deadline::Clock::now();
    EXPECT_EQ(stop.waitFor(-1, 0, Deadline(50ms)), fv2Wait::TimedOut);
    EXPECT_GE(Deadline::Clock::now() - begin, 50ms);
    EXPECT_LT(Deadline::Clock::now() - begin, 1s);
}

TEST(WorkerPool, RunsEveryJobThatCameBeforeItsEndAndSeveralAtOnce) {
    WorkerPool pool(3);
    CountingSemaphore met(0);
    StopSignal together;
    std::atomic<int> done = 0;
    for (int job = 0; job < 3; ++job)
        pool.post([&] {
            met.signal();
            EXPECT_EQ(together.waitFor(-1, 0, Deadline(5s)), fv2Wait::Stopped);
            ++done;
        });
    for (int job = 0; job < 3; ++job)
        met.wait();
    for (int job = 0; job < 100; ++job)
        pool.post([&done] { ++done; });
    together.raise();
    pool.finish();
    EXPECT_EQ(done, 103);
    pool.post([&done] { ++done; });
    pool.finish();
    EXPECT_EQ(done, 103) << "nothing runs behind the end";

    std::vector<int> order;
    WorkerPool single(1);
    for (const int job : {1, 2, 3})
        single.post([&order, job] { order.push_back(job); });
    single.finish();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(MainQueue, CallsItsLoopWhileJobsWaitAndRunsThemInOrder) {
    MainQueue queue;
    std::vector<int> order;
    const auto calls = [&queue] {
        pollfd event{queue.descriptor(), POLLIN, 0};
        return ::poll(&event, 1, 0) == 1;
    };
    EXPECT_FALSE(calls());
    std::jthread([&] {
        queue.post([&] {
            order.push_back(1);
            queue.post([&] { order.push_back(3); });
        });
        queue.post([&] { order.push_back(2); });
    }).join();
    EXPECT_TRUE(calls());
    queue.drain();
    EXPECT_EQ(order, (std::vector<int>{1, 2})) << "what a job posts waits for the next call";
    EXPECT_TRUE(calls());
    queue.drain();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
    EXPECT_FALSE(calls());
}

} // namespace
} // namespace fv2::test
