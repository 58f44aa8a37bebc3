// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// What the rooms above do not prove by using it all the time: descriptors, the queue and the workers are theirs.
#include "base/CountingSemaphore.h"
#include "base/StopSignal.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <poll.h>

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

} // namespace fv2::test
