// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"

#include <gtest/gtest.h>

#include <random>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

TEST(RefreshGate, KeepsItsPromisesInAnyOrderOfEvents) {
    ToldTimers timers;
    std::optional<ToldTimers::Time> lastStart;
    int running = 0;
    int starts = 0;
    bool owed = false; // a notification that no start has followed yet
    FV2RefreshGate gate(timers, 2, [&] {
        EXPECT_TRUE(owed) << "nobody asked";
        EXPECT_TRUE(!lastStart || timers.now() - *lastStart >= 25ms);
        EXPECT_LE(++running, 2);
        ++starts;
        owed = false;
        lastStart = timers.now();
    });
    owed = true;
    gate.request();
    EXPECT_EQ(starts, 1) << "the first one waits for nothing";

    std::mt19937 random(20260101); // NOLINT(bugprone-random-generator-seed): the same run every time
    for (int step = 0; step < 20'000 && !HasFailure(); ++step) {
        switch (random() % 4) {
        case 0:
            owed = true;
            gate.request();
            break;
        case 1:
            timers.advance(std::chrono::milliseconds(random() % 20));
            break;
        default:
            if (running > 0 && random() % 8 == 0) {
                --running;
                gate.finished();
            }
        }
        const bool mayStart = running < 2 && timers.now() - *lastStart >= 25ms;
        EXPECT_FALSE(owed && mayStart) << "forgotten at step " << step;
    }
    EXPECT_GT(starts, 500);
}

} // namespace
} // namespace fv2::test
