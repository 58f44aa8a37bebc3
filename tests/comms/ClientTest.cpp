// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "TestEndpoint.h"
#include "support/LogScope.h"
#include "support/RawSocket.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

using Clock = Deadline::Clock;

std::string jsonOf(std::size_t size) {
    return R"({"x":")" + std::string(size - 8, 'x') + "\"}";
}

//! Fills the backlog of a listener that never accepts.
std::vector<UniqueFd> fillBacklog(const std::string& path) {
    std::vector<UniqueFd> waiting;
    for (bool taken = true; taken;) {
        UniqueFd socket = newSocket();
        ::fcntl(socket.get(), F_SETFL, O_NONBLOCK);
        const sockaddr_un address = addressOf(path);
        taken = ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        waiting.push_back(std::move(socket));
    }
    return waiting;
}

class Client : public testing::Test {
protected:
    TemporaryFolder m_folder;
    const std::string m_path = m_folder / "service.sock";
};

TEST_F(Client, TriesFiveTimesWhenNobodyListensAndSaysSo) {
    const LogScope log(FV2LoggingLevel::trace);
    TestEndpoint endpoint(m_path);
    EXPECT_EQ(endpoint.sendAndReceive("{}"), "");
    std::vector<std::string> expected;
    for (const char* number : {"1", "2", "3", "4", "5"}) {
        expected.emplace_back("sendAndReceive - createConnection failed.");
        expected.push_back(std::string("sendAndReceive - RETRY ") + number);
    }
    expected.emplace_back("COMMAND FAILURE");
    EXPECT_EQ(log.messages(), expected);
    EXPECT_FALSE(endpoint.createConnection());
}

TEST_F(Client, SendsTheRequestWholeAndReturnsTheReplyWhole) {
    struct Case {
        std::size_t request, reply;
        bool staysOpen; //!< the peer waits for our end before it closes
    };
    const std::vector<Case> table{{10, 10, true},        {10, 2048, false},       {2048, 2048, true},
                                  {4096, 3000, true},    {60'000, 65'536, false}, {100'000, 65'537, true},
                                  {10, 200'000, true},   {10, 1'048'575, true},   {10, 1'048'576, true},
                                  {10, 1'048'576, false}};
    for (const Case& each : table) {
        std::string request;
        ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
            request = receiveAll(connection, each.request);
            sendAll(connection, jsonOf(each.reply));
            if (each.staysOpen)
                receiveAll(connection);
        });
        EXPECT_EQ(TestEndpoint(m_path).sendAndReceive(jsonOf(each.request)), jsonOf(each.reply)) << each.reply;
        EXPECT_EQ(request, jsonOf(each.request));
        EXPECT_EQ(peer.connections(), 1);
        ::unlink(m_path.c_str());
    }
}

TEST_F(Client, TriesAgainWhenThePeerClosesWithoutAReply) {
    std::atomic<int> answersAt = 3;
    const ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
        receiveAll(connection, 2);
        if (--answersAt == 0)
            sendAll(connection, "late");
    });
    EXPECT_EQ(TestEndpoint(m_path).sendAndReceive("{}"), "late");
    EXPECT_EQ(peer.connections(), 3);
    EXPECT_EQ(TestEndpoint(m_path).sendAndReceive("{}"), "");
    EXPECT_EQ(peer.connections(), 8);
}

TEST_F(Client, TakesNoReplyOverItsLimitAndReadsNoFurther) {
    std::atomic<std::size_t> sent = 0;
    const ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
        receiveAll(connection, 2);
        for (const std::string piece(65536, '['); sendAll(connection, piece);)
            sent += piece.size();
    });
    EXPECT_EQ(TestEndpoint(m_path, {1, 10s}).sendAndReceive("{}"), "");
    EXPECT_LT(sent, 2'000'000U);
}

TEST_F(Client, LosesItsPatienceWithAPeerThatHoldsItUp) {
    const auto untilTheEnd = [](const UniqueFd& connection) { receiveAll(connection); };
    const auto drops = [](const UniqueFd& connection) {
        while (sendAll(connection, std::string(2048, '[')))
            std::this_thread::sleep_for(10ms);
    };
    const auto neverReads = [](const UniqueFd& connection) {
        pollfd hangUp{connection.get(), 0, 0};
        ::poll(&hangUp, 1, 2000);
    };
    struct Case {
        std::string name;
        ScriptedPeer::Script script;
        std::size_t request;
        Clock::duration atLeast;
    };
    const std::vector<Case> table{{"silent", untilTheEnd, 10, 200ms},
                                  {"endless in small pieces", drops, 10, 100ms},
                                  {"never reads", neverReads, 4'000'000, 0ms}};
    for (const Case& each : table) {
        const ScriptedPeer peer(m_path, each.script);
        const auto begin = Clock::now();
        std::ignore = TestEndpoint(m_path, {2, 100ms}).sendAndReceive(jsonOf(each.request));
        EXPECT_GE(Clock::now() - begin, each.atLeast) << each.name;
        EXPECT_LT(Clock::now() - begin, 1s) << each.name;
        ::unlink(m_path.c_str());
    }

    const UniqueFd listening = listenAt(m_path, 0);
    const auto waiting = fillBacklog(m_path);
    const auto begin = Clock::now();
    EXPECT_EQ(TestEndpoint(m_path, {2, 100ms}).sendAndReceive("{}"), "") << "full backlog";
    EXPECT_GE(Clock::now() - begin, 200ms);
    EXPECT_LT(Clock::now() - begin, 1s);
}

TEST_F(Client, GetsThroughWhenAFullBacklogEmpties) {
    UniqueFd listening = listenAt(m_path, 0);
    const auto waiting = fillBacklog(m_path);
    const std::jthread server([&] {
        std::this_thread::sleep_for(50ms);
        UniqueFd connection;
        for (std::size_t each = 0; each < waiting.size(); ++each) // the last of those was not let in
            connection = UniqueFd(::accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC));
        receiveAll(connection, 2);
        sendAll(connection, "reply");
    });
    EXPECT_EQ(TestEndpoint(m_path, {1, 5s}).sendAndReceive("{}"), "reply");
}

TEST_F(Client, SendsAStrangerNothingAndDoesNotComeBack) {
    std::atomic<std::size_t> received = 0;
    const LogScope log(FV2LoggingLevel::error);
    {
        const ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
            sendAll(connection, R"({"token":"forged"})");
            received += receiveAll(connection).size();
        });
        TestEndpoint endpoint(m_path, {5, 5s}, nobodyHere());
        EXPECT_EQ(endpoint.sendAndReceive("secret"), "");
        EXPECT_FALSE(endpoint.createConnection());
        for (const Deadline deadline(2s); peer.connections() < 2 && !deadline.passed();)
            std::this_thread::sleep_for(1ms);
        EXPECT_EQ(peer.connections(), 2) << "one for each call";
    }
    EXPECT_EQ(received, 0U);
    const std::string line =
        "createConnection() refused a stranger at " + m_path + ", uid:" + std::to_string(::getuid());
    EXPECT_EQ(log.messages(), (std::vector<std::string>{line, line}));
}

TEST_F(Client, ForgetsTheStrangerWhenSomebodyElseOrNobodyFollows) {
    TestEndpoint endpoint(m_path, {3, 300ms}, nobodyHere());
    {
        const ScriptedPeer peer(m_path, [](const UniqueFd& connection) { receiveAll(connection); });
        EXPECT_EQ(endpoint.sendAndReceive("{}"), "");
    }
    const LogScope log(FV2LoggingLevel::trace);
    EXPECT_EQ(endpoint.sendAndReceive("{}"), "");
    EXPECT_EQ(log.messages().size(), 2 * 3U + 1) << "every attempt is made again";
}

TEST_F(Client, IsEndedByTheStopSignalWhereverItWaits) {
    const auto silent = [](const UniqueFd& connection) { receiveAll(connection); };
    const auto half = [](const UniqueFd& connection) {
        sendAll(connection, std::string(4096, '['));
        receiveAll(connection);
    };
    const auto endedIn = [this](std::string_view state) {
        const auto stop = std::make_shared<const StopSignal>();
        Clock::time_point raised;
        std::jthread raiser([&] {
            std::this_thread::sleep_for(50ms);
            raised = Clock::now();
            stop->raise();
        });
        std::ignore = TestEndpoint(m_path, {5, 20s}, PeerPolicy::rootOrSelf(), stop).sendAndReceive("{}");
        const auto ended = Clock::now();
        raiser.join();
        EXPECT_GE(ended, raised) << state;
        EXPECT_LT(ended - raised, 200ms) << state;
        ::unlink(m_path.c_str());
    };
    {
        const ScriptedPeer peer(m_path, silent);
        endedIn("before the first byte");
    }
    {
        const ScriptedPeer peer(m_path, half);
        endedIn("in the middle");
    }
    const UniqueFd listening = listenAt(m_path, 0);
    const auto waiting = fillBacklog(m_path);
    endedIn("before a full backlog");
}

TEST_F(Client, SendsNothingOnceStopped) {
    const auto stop = std::make_shared<const StopSignal>();
    stop->raise();
    std::atomic<std::size_t> received = 0;
    {
        const ScriptedPeer peer(m_path, [&](const UniqueFd& connection) { received += receiveAll(connection).size(); });
        EXPECT_EQ(TestEndpoint(m_path, {5, 300ms}, PeerPolicy::rootOrSelf(), stop).sendAndReceive("secret"), "");
        const UniqueFd next = connectTo(m_path); // its end comes behind an exchange that should not have been
        ::shutdown(next.get(), SHUT_WR);
        receiveAll(next);
    }
    EXPECT_EQ(received, 0U);
}

TEST_F(Client, KeepsNoDescriptorAndPassesNoneOn) {
    const auto inherited = openDescriptors(true);
    std::set<int> inheritedMeanwhile;
    const auto before = openDescriptors();
    {
        ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
            if (receiveAll(connection, 2) != "ok")
                return;
            inheritedMeanwhile = openDescriptors(true);
            sendAll(connection, "reply");
        });
        EXPECT_EQ(TestEndpoint(m_path).sendAndReceive("ok"), "reply");
        EXPECT_EQ(TestEndpoint(m_path).sendAndReceive("no"), "");
        EXPECT_EQ(TestEndpoint(m_path, {5, 300ms}, nobodyHere()).sendAndReceive("ok"), "");
        TestEndpoint endpoint(m_path);
        EXPECT_TRUE(endpoint.createConnection());
        EXPECT_TRUE(endpoint.createConnection());
    }
    EXPECT_EQ(TestEndpoint(m_folder / "nobody").sendAndReceive("ok"), "");
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(inheritedMeanwhile, inherited);
}

TEST_F(Client, IsNotHarmedByInterruptedCalls) {
    constexpr std::size_t kPiece = 40 * 2048;
    const std::string reply = jsonOf(3 * kPiece);
    const ScriptedPeer peer(m_path, [&](const UniqueFd& connection) {
        receiveAll(connection, 10);
        for (std::size_t at = 0; at < reply.size(); at += kPiece) {
            std::this_thread::sleep_for(3ms);
            sendAll(connection, std::string_view(reply).substr(at, kPiece));
        }
    });
    const SignalStorm storm;
    for (int exchange = 0; exchange < 20; ++exchange)
        EXPECT_EQ(TestEndpoint(m_path, {5, 10s}).sendAndReceive(jsonOf(10)), reply);
    EXPECT_EQ(peer.connections(), 20) << "each at its first attempt";
}

} // namespace
} // namespace fv2::test
