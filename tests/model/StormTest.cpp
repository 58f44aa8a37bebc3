// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"
#include "base/MainQueue.h"
#include "base/WorkerPool.h"
#include "comms/TestEndpoint.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

using Clock = std::chrono::steady_clock;

class ThreadDispatch final : public FV2Dispatch {
public:
    void toMain(std::function<void()> job) override { main.post(std::move(job)); }
    void toWorker(std::function<void()> job) override { workers.post(std::move(job)); }

    MainQueue main;
    WorkerPool workers{4};
};

class EndpointLink final : public FV2ServiceLink {
public:
    explicit EndpointLink(std::string path)
        : m_path(std::move(path)) {}
    [[nodiscard]] std::string exchange(std::string_view request) override {
        return TestEndpoint(m_path, {5, 2s}, PeerPolicy::rootOrSelf(), m_stop).sendAndReceive(request);
    }
    [[nodiscard]] std::string farewell(std::string_view /*request*/) override { return {}; }
    void cancel() override { m_stop->raise(); }

private:
    std::string m_path;
    std::shared_ptr<const StopSignal> m_stop = std::make_shared<const StopSignal>();
};

std::ptrdiff_t threadCount() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

//! The agent's model with real threads and sockets, this thread as its main thread, and a service whose status tells in
//! "progress" how often it has changed.
class Storm {
public:
    Storm()
        : m_service(m_folder / "service.sock", [this](const UniqueFd& connection) { serve(connection); })
        , link(m_folder / "service.sock")
        , model(std::make_unique<FV2AppStateModel>(
              FV2AppStateModel::Surroundings{
                  .dispatch = dispatch,
                  .timers = m_timers,
                  .service = link,
                  .strings = m_strings,
                  .mediumDate = [](std::int64_t) { return std::string(); },
                  .computerName = "desk",
                  .makeAppSocket = [this] { return std::make_unique<TestEndpoint>(m_agent); }},
              501)) {
        model->setAppDelegate(interface);
        m_timers.advanceTo(Clock::now());
        model->runBackgroundThread();
        std::ignore = connectTo(m_agent); // back only once the listener accepts
    }

    //! One turn of the main loop.
    void turn() {
        pollfd jobs{dispatch.main.descriptor(), POLLIN, 0};
        ::poll(&jobs, 1, 1);
        m_timers.advanceTo(Clock::now());
        dispatch.main.drain();
    }

    //! Eight threads send so many notifications each, every one after a change of the service's status, or until the
    //! listener is gone.
    void startSenders(int notifications) {
        for (int sender = 0; sender < 8; ++sender)
            m_senders.emplace_back([this, notifications] {
                for (int sent = 0; sent < notifications && notify(); ++sent) {
                }
                ++sendersDone;
            });
    }

    std::atomic<int> changes = 0;
    std::atomic<int> statusAsked = 0;
    std::atomic<int> answered = 0;
    std::atomic<int> unanswered = 0; //!< while the listener was up
    std::atomic<int> sendersDone = 0;
    std::atomic<bool> stopping = false;

private:
    void serve(const UniqueFd& connection) {
        std::array<char, 2048> request{};
        const ssize_t size = ::recv(connection.get(), request.data(), request.size(), 0);
        const std::string_view text(request.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        if (text.find("get_status") == text.npos) {
            sendAll(connection, R"({"token":"t"})");
            return;
        }
        ++statusAsked;
        sendAll(connection, statusAnswer(5, R"(,"progress":)" + std::to_string(changes)));
    }

    bool notify() {
        ++changes;
        const UniqueFd peer = newSocket();
        const sockaddr_un address = addressOf(m_agent);
        const bool connected = ::connect(peer.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        const bool good = connected && sendAll(peer, "{}") && receiveAll(peer) == R"("{ "result": 0 }")";
        if (good)
            ++answered;
        else if (!stopping)
            ++unanswered;
        return good;
    }

    TemporaryFolder m_folder;
    const std::string m_agent = m_folder / "agent.sock";
    ScriptedPeer m_service;
    MarkedStrings m_strings;
    ToldTimers m_timers;

public:
    FakeInterface interface;
    EndpointLink link;
    ThreadDispatch dispatch;
    std::unique_ptr<FV2AppStateModel> model;

private:
    std::vector<std::jthread> m_senders;
};

TEST(Storm, IsAnsweredUntilTheStopWhichLeavesNothingBehind) {
    const auto descriptors = openDescriptors();
    const auto threads = threadCount();
    {
        Storm storm;
        storm.startSenders(std::numeric_limits<int>::max());
        for (int refreshes = 0; storm.answered < 2'000 && storm.unanswered == 0; storm.turn())
            for (; refreshes < 50 && storm.answered >= 20 * refreshes; ++refreshes)
                storm.model->syncCommsAsync(true, refreshes % 2 == 0 ? fv2SyncSource::User : fv2SyncSource::Moved,
                                            true);
        storm.stopping = true;
        const auto begin = Clock::now();
        storm.model->stopBackgroundThread();
        EXPECT_LT(Clock::now() - begin, 200ms);
        storm.link.cancel();
        storm.dispatch.workers.finish();
        EXPECT_LT(Clock::now() - begin, 1s);
        EXPECT_EQ(storm.unanswered, 0) << "before the stop";
        EXPECT_GT(storm.interface.shows, 10);
        const int shows = storm.interface.shows;
        storm.model.reset();
        storm.turn();
        EXPECT_EQ(storm.interface.shows, shows);
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    for (const Deadline deadline(2s); threadCount() > threads && !deadline.passed();)
        std::this_thread::sleep_for(1ms);
    EXPECT_EQ(threadCount(), threads);
}

TEST(Storm, EndsInTheLastStateAfterFewRefreshes) {
    Storm storm;
    const auto begin = Clock::now();
    storm.startSenders(250);
    const auto settled = [&storm] {
        return storm.sendersDone == 8 && storm.model->state().encryptionProgress == storm.changes;
    };
    for (const Deadline deadline(30s); !settled() && !deadline.passed();)
        storm.turn();
    EXPECT_EQ(storm.answered, 2'000);
    EXPECT_EQ(storm.changes, 2'000);
    for (const Deadline afterwards(100ms); !afterwards.passed();)
        storm.turn();
    EXPECT_EQ(storm.model->state().encryptionProgress, 2'000);
    EXPECT_LE(storm.statusAsked, (Clock::now() - begin) / FV2RefreshGate::spacing + 1);
    storm.model->stopBackgroundThread();
    storm.dispatch.workers.finish();
}

} // namespace
} // namespace fv2::test
