// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"
#include "base/WorkerPool.h"

#include <random>

using namespace std::chrono_literals;

namespace fv2::test {

TEST(RefreshGate, KeepsItsPromisesInAnyOrderOfEvents) {
    ToldTimers timers;
    std::optional<std::chrono::steady_clock::time_point> lastStart;
    int running = 0;
    bool owed = false; // a notification that no start has followed yet
    FV2RefreshGate gate(timers, 2, [&] {
        EXPECT_TRUE(owed) << "nobody asked";
        EXPECT_TRUE(!lastStart || timers.now() - *lastStart >= 25ms);
        EXPECT_LE(++running, 2);
        owed = false;
        lastStart = timers.now();
    });
    std::mt19937 random(20260101); // NOLINT(bugprone-random-generator-seed): the same run every time
    for (int step = 0; step < 20'000 && !HasFailure(); ++step) {
        const auto event = random() % 16;
        if (event < 4 || step == 0) {
            owed = true;
            gate.request();
        } else if (event < 8) {
            timers.advance(std::chrono::milliseconds(random() % 20));
        } else if (event == 8 && running > 0) {
            --running;
            gate.finished();
        }
        const bool mayStart = running < 2 && (!lastStart || timers.now() - *lastStart >= 25ms);
        EXPECT_FALSE(owed && mayStart) << "forgotten at step " << step;
    }
}

struct ThreadDispatch final : FV2Dispatch {
    void toMain(std::function<void()> job) override { main.post(std::move(job)); }
    void toWorker(std::function<void()> job) override { workers.post(std::move(job)); }

    MainQueue main;
    WorkerPool workers{4};
};

//! A service whose status tells in "progress" how often it has changed.
struct ChangingService final : FV2ServiceClient {
    std::string exchange(std::string_view request) override {
        asked += request == getStatusRequest(501) ? 1 : 0;
        return statusAnswer(5, R"(,"progress":)" + std::to_string(changes));
    }
    std::string exchangeSecret(const SecretText& /*request*/) override { return {}; }
    std::string farewell(std::string_view /*request*/) override { return {}; }
    void cancel() override {}

    std::atomic<int> changes = 0;
    std::atomic<int> asked = 0;
};

TEST_F(Model, EndsAStormInTheLastStateAndStopsInTheMiddleOfTheNextLeavingNothingBehind) {
    model.reset();
    const auto descriptors = openDescriptors();
    {
        ChangingService service;
        ThreadDispatch threads;
        model = make(threads, service);
        model->runBackgroundThread();
        std::atomic<int> answered = 0;
        std::atomic<bool> stopping = false;
        const auto storm = [&](int notifications, const std::function<bool()>& done) {
            std::vector<std::jthread> senders;
            for (int sender = 0; sender < 8; ++sender)
                senders.emplace_back([&, notifications] {
                    for (int sent = 0; sent < notifications && !stopping; ++sent) {
                        ++service.changes;
                        answered += exchange("{}") == R"("{ "result": 0 }")" ? 1 : 0;
                    }
                });
            int turns = 0;
            for (const Deadline deadline(30s); !done() && !deadline.passed(); ++turns) {
                if (turns < 50)
                    model->syncCommsAsync(true, turns % 2 == 0 ? fv2SyncSource::User : fv2SyncSource::Moved, true);
                pollfd jobs{threads.main.descriptor(), POLLIN, 0};
                ::poll(&jobs, 1, 1);
                timers.advance(1ms);
                threads.main.drain();
            }
            return turns;
        };
        const int turns = storm(250, [&] { return answered == 2000 && model->state().encryptionProgress == 2000; });
        EXPECT_EQ(model->state().encryptionProgress, answered);
        EXPECT_LE(service.asked, 50 + 1 + turns / 25);

        storm(5'000, [&] {
            if (answered < 4000)
                return false;
            const auto begin = Deadline::Clock::now();
            model->stopBackgroundThread();
            EXPECT_LT(Deadline::Clock::now() - begin, 200ms);
            return stopping = true;
        });
        model->syncCommsAsync(true, fv2SyncSource::User, true);
        EXPECT_TRUE(threads.workers.finish(Deadline(30s))); // and what comes of it waits for the main thread
        interface.icons.clear();
        model.reset();
        threads.main.drain();
        EXPECT_TRUE(interface.icons.empty());
    }
    EXPECT_EQ(openDescriptors(), descriptors);
}

} // namespace fv2::test
