// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "TestEndpoint.h"
#include "support/LogScope.h"
#include "support/RawSocket.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <tuple>
#include <vector>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

using Clock = Deadline::Clock;

//! Listens on a thread of its own, whose calls are interrupted all the time. Answers each message with its size and
//! text, or with "cut".
class Serving {
public:
    explicit Serving(const std::string& path, PeerPolicy trusted = PeerPolicy::rootOrSelf())
        : m_endpoint(path, {}, std::move(trusted)) {
        EXPECT_TRUE(m_endpoint.createBinding());
        m_thread = std::jthread([this] {
            const SignalStorm storm;
            for (FV2SocketComms_ReceivedData in; (in = m_endpoint.listenAcceptAndReceiveData()).socket;) {
                m_endpoint.send(in.socket.get(), in.cut ? "cut" : std::to_string(in.byteCount) + ":" + in.data);
                m_endpoint.closeAfterAnswer(std::move(in));
            }
        });
        std::ignore = connectTo(path); // back only once it listens
    }
    ~Serving() {
        const auto begin = Clock::now();
        m_endpoint.shutdown();
        m_thread.join();
        EXPECT_LT(Clock::now() - begin, 200ms) << "whatever the peers do";
    }

private:
    TestEndpoint m_endpoint;
    std::jthread m_thread;
};

struct Comms : testing::Test {
    const TemporaryFolder folder;
    const std::string path = folder / "test.sock";
};
using Client = Comms;
using Listener = Comms;

TEST_F(Client, TriesFiveTimes) {
    TestEndpoint endpoint(path);
    ScriptedPeer peer(path, [&peer](const UniqueFd& connection) {
        receiveAll(connection, 2);
        if (peer.connections() == 3)
            sendAll(connection, "late");
    });
    EXPECT_EQ(endpoint.sendAndReceive("{}"), "late") << "the first two were closed without a reply";
    EXPECT_EQ(endpoint.sendAndReceive("{}"), "");
    EXPECT_EQ(peer.connections(), 3 + 5);
}

TEST_F(Client, SendsTheRequestWholeAndReturnsTheReplyWhole) {
    const std::vector<std::pair<std::size_t, std::size_t>> table{{30, 30},           {2048, 2048},    {4096, 3000},
                                                                 {100'000, 200'000}, {30, 1'048'576}, {30, 1'048'577}};
    for (const auto& size : table) {
        const ScriptedPeer peer(path, [&size](const UniqueFd& connection) {
            EXPECT_EQ(receiveAll(connection, size.first), jsonOf(size.first));
            sendAll(connection, jsonOf(size.second));
            receiveAll(connection);
        });
        EXPECT_EQ(TestEndpoint(path, {1, 10s}).sendAndReceive(jsonOf(size.first)),
                  size.second > TestEndpoint::maxReply ? "" : jsonOf(size.second));
    }
}

TEST_F(Client, IsHeldUpByNobodyLongerThanItsPatienceNorOnceStopped) {
    const auto check = [this](std::string_view state) {
        const auto begin = Clock::now();
        std::ignore = TestEndpoint(path, {2, 100ms}).sendAndReceive("{}");
        EXPECT_GE(Clock::now() - begin, 100ms) << state;
        EXPECT_LT(Clock::now() - begin, 1s) << state;

        const auto stop = std::make_shared<const StopSignal>();
        std::atomic<Clock::time_point> raised;
        const std::jthread raiser([&] {
            std::this_thread::sleep_for(50ms);
            raised = Clock::now();
            stop->raise();
        });
        std::ignore = TestEndpoint(path, {5, 20s}, PeerPolicy::rootOrSelf(), stop).sendAndReceive("{}");
        EXPECT_LT(Clock::now() - raised.load(), 200ms) << state;
    };
    for (const bool endless : {false, true}) {
        const ScriptedPeer peer(path, [endless](const UniqueFd& connection) {
            while (sendAll(connection, std::string(2048, '[')) && endless)
                std::this_thread::sleep_for(10ms);
            receiveAll(connection);
        });
        check(endless ? "endless in small pieces" : "stops half-way");
    }
    UniqueFd listening = listenAt(path);
    check("silent");
    EXPECT_EQ(TestEndpoint(path, {1, 5s}).sendAndReceive(jsonOf(4'000'000)), "") << "never reads";
    listening = listenAt(path, 0);
    const UniqueFd waiting = connectTo(path);
    check("full backlog");
}

TEST_F(Client, ComesToNobodyButASocketOfSomebodyTrusted) {
    const UniqueFd listening = listenAt(path);
    std::filesystem::create_symlink(path, folder / "link");
    const LogScope log(FV2LoggingLevel::error);
    EXPECT_EQ(TestEndpoint(path, {5, 5s}, nobodyHere()).sendAndReceive("secret"), "");
    EXPECT_EQ(log.messages(),
              std::vector{"createConnection() refused a stranger at " + path + ", uid:" + std::to_string(::getuid())});
    const auto stop = std::make_shared<const StopSignal>();
    stop->raise();
    EXPECT_EQ(TestEndpoint(path, {5, 5s}, PeerPolicy::rootOrSelf(), stop).sendAndReceive("secret"), "");
    EXPECT_EQ(TestEndpoint(folder / "link").sendAndReceive("secret"), "") << "whoever made the link";
    EXPECT_EQ(TestEndpoint(path, {5, 5s}).sendAndReceive(""), "") << "nothing to say";
    EXPECT_FALSE(isReadable(listening));
}

TEST_F(Listener, ReplacesAStaleFileByASocketThatOnlyItsOwnerMayUse) {
    listenAt(path).reset();
    TestEndpoint endpoint(path);
    EXPECT_TRUE(endpoint.createBinding());
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFSOCK | 0644U);
    EXPECT_FALSE(TestEndpoint(folder / std::string(200, 'x')).createBinding()) << "which has no place in an address";
    endpoint.shutdown();
    EXPECT_FALSE(endpoint.listenAcceptAndReceiveData().socket) << "shut down before it accepts";
    EXPECT_TRUE(endpoint.cleanup() && !endpoint.cleanup());
}

TEST_F(Listener, ReadsMessagesByTheRulesOfTheWireAndGetsItsAnswerThrough) {
    const std::string more(1024 * 1024, 'x');
    const std::vector<std::pair<std::string, std::string>> table{
        {more.substr(0, 65535), "65535:" + more.substr(0, 65535)},
        {jsonOf(65536), "65536:" + jsonOf(65536)},
        {more.substr(0, 65537), "cut"},
        {more, "cut"},
        {jsonOf(34816) + more, "34816:" + jsonOf(34816)}};
    const Serving serving(path);
    for (int round = 0; round < 20; ++round)
        for (const auto& [text, answer] : table) {
            const UniqueFd peer = connectTo(path);
            EXPECT_TRUE(sendAll(peer, text)) << text.size();
            EXPECT_EQ(receiveAll(peer), answer) << text.size();
            EXPECT_TRUE(answer != "cut" || sendAll(peer, more)) << "hears out who goes on sending behind its answer";
        }
    std::vector<UniqueFd> silent;
    for (int peer = 0; peer < 150; ++peer)
        silent.push_back(connectTo(path));
    EXPECT_EQ(receiveAll(silent.front()), "") << "the oldest one made room";
    EXPECT_FALSE(isReadable(silent.back())) << "the youngest one is still welcome";
    auto wary = std::make_unique<const Serving>(folder / "wary", nobodyHere());
    EXPECT_EQ(receiveAll(connectTo(folder / "wary")), "") << "a stranger";
    wary.reset();
    EXPECT_FALSE(std::filesystem::exists(folder / "wary")) << "removed when shut down while it accepts";
}

} // namespace
} // namespace fv2::test
