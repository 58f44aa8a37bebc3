// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DesktopDispatch.h"
#include "platform/FV2QtTimerService.h"
#include "support/QtLoop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <future>

namespace fv2::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(TimerService, CallsNoMoreOnceTheTimerIsDestroyed) {
    FV2QtTimerService timers;
    int calls = 0;
    timers.after(milliseconds(0), [&calls] { ++calls; }).reset();
    auto later = timers.after(milliseconds(10), [&calls] { ++calls; });
    const auto sooner = timers.after(milliseconds(1), [&later] { later.reset(); });
    EXPECT_TRUE(runLoopUntil([&later] { return later == nullptr; }));
    runLoopFor(milliseconds(40));
    EXPECT_EQ(calls, 0);
}

TEST(TimerService, LetsTheCallbackDestroyItsTimerAndStartTheNext) {
    FV2QtTimerService timers;
    std::unique_ptr<FV2Timer> timer;
    std::string calls;
    std::function<void()> again = [&, text = std::string("a text that does not fit in the object")] {
        timer.reset();
        calls += text.front();
        if (calls.size() < 3)
            timer = timers.after(milliseconds(1), again);
    };
    timer = timers.after(milliseconds(1), again);
    EXPECT_TRUE(runLoopUntil([&] { return timer == nullptr; }));
    runLoopFor(milliseconds(20));
    EXPECT_EQ(calls, "aaa");
}

TEST(TimerService, WaitsForMonthsByAClockThatGoesOnWhileTheComputerSleeps) {
    bool called = false;
    const auto timer = FV2QtTimerService().after(milliseconds((1LL << 32) + 5), [&called] { called = true; });
    std::string clocks;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fdinfo"))
        if (const std::string told = contentOf(descriptor.path()); told.find("clockid: ") != told.npos)
            clocks += told.substr(told.find("clockid: "), sizeof "clockid: 7" - 1);
    EXPECT_EQ(clocks, "clockid: " + std::to_string(CLOCK_BOOTTIME));
    runLoopFor(milliseconds(50));
    EXPECT_FALSE(called);
}

TEST(DesktopDispatch, LeavesTheLoopItsTimeWhileEveryWorkerHangsAndJobsPostJobs) {
    FV2DesktopDispatch dispatch;
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    std::atomic<int> begun = 0;
    for (int i = 0; i < 20; ++i)
        dispatch.toWorker([&begun, released] {
            ++begun;
            released.wait();
        });
    bool timerRan = false;
    std::function<void()> again = [&] {
        if (!timerRan)
            dispatch.toMain(again);
    };
    dispatch.toMain(again);
    QTimer::singleShot(1, [&timerRan] { timerRan = true; });
    EXPECT_TRUE(runLoopUntil([&timerRan] { return timerRan; }));
    EXPECT_TRUE(runLoopUntil([&begun] { return begun >= 4; })) << "jobs that hang must leave room for others";
    EXPECT_FALSE(dispatch.finish(Deadline(milliseconds(10)))) << "nothing can end them";
    release.set_value();
    EXPECT_TRUE(dispatch.finish(Deadline(seconds(10))));
    EXPECT_EQ(begun, 20) << "finish() runs what waits";
}

TEST(DesktopDispatch, DeliversNothingOnceTheOwnerIsGoneOrItHasFinished) {
    int delivered = 0;
    auto owner = std::make_shared<const char>();
    FV2DesktopDispatch dispatch;
    const auto run = [&](int value) {
        dispatch.run(
            owner, [value] { return value; }, [&delivered](int result) { delivered += result; });
    };
    run(1);
    EXPECT_TRUE(runLoopUntil([&delivered] { return delivered == 1; }));
    run(10);
    owner = std::make_shared<const char>();
    runLoopFor(milliseconds(30));
    run(100);
    EXPECT_TRUE(dispatch.finish(Deadline(seconds(10))));
    run(1000);
    runLoopFor(milliseconds(30));
    EXPECT_EQ(delivered, 1);
}

} // namespace
} // namespace fv2::test
