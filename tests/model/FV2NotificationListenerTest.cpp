// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2NotificationListener.h"

#include "comms/TestEndpoint.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <mutex>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

class NotificationListener : public testing::Test {
protected:
    using Events = std::vector<std::string>;

    std::unique_ptr<FV2NotificationListener> make(std::chrono::milliseconds retryAfter = 30s) {
        return std::make_unique<FV2NotificationListener>(
            std::make_unique<TestEndpoint>(path), life,
            FV2NotificationListener::Events{
                .received = [this](fv2JsonCommand command) { add(std::to_string(static_cast<int>(command))); },
                .bound = [this](bool bound) { add(bound ? "bound" : "not bound"); }},
            retryAfter);
    }

    void add(std::string event) {
        const std::lock_guard lock(m_mutex);
        m_events.push_back(std::move(event));
    }
    Events events() {
        const std::lock_guard lock(m_mutex);
        return m_events;
    }
    //! Waits for that many events, forgets them and returns them.
    Events next(std::size_t count) {
        for (const Deadline deadline(2s); events().size() < count && !deadline.passed();)
            std::this_thread::sleep_for(1ms);
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_events, {});
    }

    [[nodiscard]] std::string exchange(std::string_view text) const {
        const UniqueFd peer = connectTo(path);
        sendAll(peer, text);
        if (text.empty())
            ::shutdown(peer.get(), SHUT_WR);
        return receiveAll(peer);
    }

    TemporaryFolder folder;
    const std::string path = folder / "agent.sock";
    CountingSemaphore life{1};

private:
    std::mutex m_mutex;
    Events m_events;
};

TEST_F(NotificationListener, AnswersEachMessageAndTellsWhatItAsksFor) {
    const std::string understood = R"("{ "result": 0 }")";
    const std::string notUnderstood = R"("{ "result": 1 }")";
    const std::vector<std::tuple<std::string, std::string, Events>> table{
        {R"({ "command": "show_ui" })", understood, {"1"}},
        {R"({ "command": "get_status" })", understood, {"2"}},
        {R"({ "command": "proxy_sync" })", understood, {"2"}},
        {"{}", understood, {"2"}},
        {"garbage", notUnderstood, {"0"}},
        {R"({ "command": 1 })", notUnderstood, {"0"}},
        {"{ " + std::string(1024 * 1024, ' '), notUnderstood, {"0"}},
        {std::string("\0{}", 3), notUnderstood, {"0"}},
        {"", "", {}}};
    const auto listener = make();
    listener->start();
    EXPECT_EQ(next(1), Events{"bound"});
    for (const auto& [sent, answer, told] : table) {
        EXPECT_EQ(exchange(sent), answer) << sent.substr(0, 40);
        EXPECT_EQ(exchange("{}"), understood);
        Events expected = told;
        expected.emplace_back("2");
        EXPECT_EQ(next(expected.size()), expected) << sent.substr(0, 40);
    }
}

TEST_F(NotificationListener, TriesAgainWhileItsPathIsTaken) {
    std::filesystem::create_directory(path);
    const auto listener = make(20ms);
    listener->start();
    EXPECT_EQ(next(2), (Events{"not bound", "not bound"}));
    std::filesystem::remove(path);
    Events later;
    while (later.empty() || later.back() != "bound") {
        later = next(1);
        ASSERT_FALSE(later.empty());
    }
    EXPECT_EQ(exchange("{}"), R"("{ "result": 0 }")");
    listener->stop();
    EXPECT_EQ(next(1), Events{"2"}) << "ending is no loss of the path";
}

TEST_F(NotificationListener, StopsWithinMomentsFromAnyState) {
    const auto stops = [this](const std::string& state, const std::function<void()>& prepare) {
        SCOPED_TRACE(state);
        const auto listener = make();
        listener->start();
        prepare();
        const auto begin = Deadline::Clock::now();
        listener->stop();
        EXPECT_LT(Deadline::Clock::now() - begin, 200ms);
        EXPECT_EQ(life.count(), 1);
        EXPECT_FALSE(std::filesystem::is_socket(path));
        listener->stop();
        EXPECT_EQ(life.count(), 1) << "again";
    };
    UniqueFd half;
    stops("accepting", [&] {
        EXPECT_EQ(exchange("{}"), R"("{ "result": 0 }")");
        EXPECT_EQ(life.count(), 0) << "held while it runs";
    });
    stops("reading", [&] {
        half = connectTo(path);
        sendAll(half, std::string(2048, 'x'));
        EXPECT_EQ(exchange("{}"), R"("{ "result": 0 }")");
    });
    std::filesystem::create_directory(path);
    next(0);
    stops("waiting for its path", [&] { EXPECT_EQ(next(1), Events{"not bound"}); });
    make()->stop();
    EXPECT_EQ(life.count(), 1) << "never started";
}

TEST_F(NotificationListener, StopsBeforeItsThreadGotGoing) {
    for (int round = 0; round < 200; ++round) {
        const auto listener = make();
        listener->start();
        if (round % 4 != 0)
            std::this_thread::sleep_for(std::chrono::microseconds(5 * round));
        listener->stop();
        ASSERT_EQ(life.count(), 1) << round;
        ASSERT_FALSE(std::filesystem::exists(path)) << round;
    }
}

} // namespace
} // namespace fv2::test
