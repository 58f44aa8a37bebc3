// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "TestEndpoint.h"
#include "support/Faults.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

struct Row {
    std::string call;
    std::vector<int> errors; //!< each for itself
    std::string outcome;
    int nth = 1;
    int times = 1;
    std::chrono::milliseconds least{0};
};

//! Every system call of the room, failing in each way that the system knows. Whatever becomes of the first exchange, it
//! takes little time, keeps no descriptor and passes none on, and the next one works.
struct CommsFaults : testing::Test {
    //! Compares what `run` tells of each row, and then without a fault.
    void check(const std::vector<Row>& table, const std::string& usual,
               const std::function<std::string(TestEndpoint&, const Fault*)>& run) const {
        const auto before = openDescriptors();
        for (const Row& row : table)
            for (const int error : row.errors) {
                const Fault fault{row.call, error, row.nth, row.times};
                const auto begin = Deadline::Clock::now();
                {
                    TestEndpoint endpoint(path, {1, 300ms});
                    EXPECT_EQ(run(endpoint, &fault), row.outcome) << fault;
                    EXPECT_EQ(run(endpoint, nullptr), usual) << "behind " << fault;
                }
                EXPECT_GE(Deadline::Clock::now() - begin, row.least) << fault;
                EXPECT_LT(Deadline::Clock::now() - begin, 4s) << fault;
                for (const Deadline late(2s); openDescriptors() != before && !late.passed();)
                    std::this_thread::yield(); // a peer of ours may still be closing its end
                EXPECT_EQ(openDescriptors(), before) << fault;
            }
    }

    //! Lets it bind, listen, and begin its next call with a poll.
    static void startListening(TestEndpoint& endpoint) {
        EXPECT_TRUE(endpoint.createBinding());
        takeIn(endpoint);
    }
    //! Lets it take in who waits, without an answer to anybody.
    static void takeIn(TestEndpoint& endpoint, int polls = 0) {
        const Faults faults({{"poll", ENOMEM, polls + 1}});
        EXPECT_FALSE(endpoint.listenAcceptAndReceiveData().socket.isOpen());
    }
    //! The message that it answers; none when it does not listen any more.
    std::string answerNext(TestEndpoint& endpoint) const {
        FV2SocketComms_ReceivedData in = endpoint.listenAcceptAndReceiveData();
        passesNothingOn();
        if (!in.socket)
            return "";
        endpoint.send(in.socket.get(), in.data);
        std::string text = in.data.empty() ? "nothing" : in.data;
        endpoint.closeAfterAnswer(std::move(in));
        return text;
    }

    //! To a program that would be started in the middle of an exchange.
    void passesNothingOn() const { EXPECT_EQ(openDescriptors(true), inherited); }

    const std::set<int> inherited = openDescriptors(true);
    const TemporaryFolder folder;
    const std::string path = folder / "test.sock";
};

//! `job` under the fault, which must happen.
template <class Job>
auto under(const Fault* fault, const Job& job) {
    const Faults faults(fault == nullptr ? std::vector<Fault>() : std::vector{*fault});
    auto result = job();
    EXPECT_TRUE(faults.happened()) << *fault;
    return result;
}

TEST_F(CommsFaults, EndAnExchangeEmptyOrNotAtAll) {
    const std::vector<Row> table{
        {"socket", {EMFILE, ENOMEM}, ""},
        {"connect", {EINTR}, "the reply", 1, 50},
        {"connect", {EAGAIN}, "the reply", 1, 3, 70ms}, // waits twice as long each time
        {"setsockopt", {ENOPROTOOPT}, "the reply"},
        {"open", {EMFILE, ENAMETOOLONG}, ""},
        {"connect", {EAGAIN}, "", 1, 5000, 300ms},
        {"connect", {ECONNREFUSED, EACCES}, ""},
        {"getsockopt", {ENOPROTOOPT}, ""},
        {"send", {EINTR}, "the reply", 1, 50},
        {"send", {EAGAIN, EPIPE, ECONNRESET, ENOBUFS, Fault::kShort}, ""},
        {"poll", {EINTR}, "the reply", 1, 50},
        {"poll", {ENOMEM}, ""},
        {"recv", {EINTR}, "the reply", 1, 50},
        {"recv", {EAGAIN, ECONNRESET}, ""},
        {"recv", {Fault::kShort}, "th"}, // a short chunk is the last one
        {"close", {EINTR, EIO}, "the reply"},
    };
    const ScriptedPeer peer(path, [this](const UniqueFd& connection) {
        passesNothingOn();
        if (receiveAll(connection, 9) == "a request")
            sendAll(connection, "the reply");
    });
    check(table, "the reply", [](TestEndpoint& endpoint, const Fault* fault) {
        return under(fault, [&] { return endpoint.sendAndReceive("a request"); });
    });
}

TEST_F(CommsFaults, LetABindingFailThatCouldNotServe) {
    const std::vector<Row> table{
        {"unlink", {EACCES}, "bound"},
        {"socket", {EMFILE}, ""},
        {"bind", {EADDRINUSE, EACCES, ENOSPC}, ""},
        {"chmod", {EPERM, EROFS}, ""},
        {"listen", {EADDRINUSE, EACCES}, ""},
    };
    check(table, "bound", [this](TestEndpoint& endpoint, const Fault* fault) {
        return under(fault, [&] {
            bool serves = endpoint.createBinding();
            if (serves && fault != nullptr && fault->call == "listen")
                serves = endpoint.listenAcceptAndReceiveData().socket.isOpen();
            return std::string(serves ? "bound" : "");
        });
    });
}

TEST_F(CommsFaults, NeverKeepAListenerOrAWaitFromEnding) {
    std::optional<Faults> faults(std::vector<Fault>{{"eventfd", EMFILE}});
    TestEndpoint endpoint(path);
    EXPECT_TRUE(faults->happened());
    faults.reset();
    EXPECT_FALSE(endpoint.createBinding()) << "nothing could wake it";
    const std::jthread raiser([&endpoint] { endpoint.shutdown(); });
    EXPECT_EQ(endpoint.stopSignal().waitFor(-1, 0, Deadline(4s)), fv2Wait::Stopped);
    TestEndpoint replaced(path);
    startListening(replaced);
    EXPECT_FALSE(replaced.isPathGone());
    listenAt(path).reset();
    EXPECT_TRUE(replaced.isPathGone()) << "another one stands there";
    replaced.stopListening();
    EXPECT_EQ(answerNext(replaced), "");
    EXPECT_TRUE(replaced.createBinding() && !replaced.isPathGone());
}

//! What two peers that have sent their messages get under the fault.
TEST_F(CommsFaults, CostTheListenerAMessageAtMost) {
    const std::vector<Row> table{
        {"poll", {EINTR}, "one two", 1, 50},
        {"poll", {ENOMEM}, "failed "},
        {"accept4", {EINTR, EAGAIN, ECONNABORTED}, "one two"},
        {"accept4", {EMFILE}, "one two", 1, 3, 300ms}, // does not busy-wait
        {"accept4", {EINTR, EAGAIN, ECONNABORTED, EMFILE}, "one two", 2},
        {"accept4", {EINVAL}, "failedone ", 2},
        {"accept4", {ENFILE, ENOBUFS, ENOMEM}, "one two", 1, 1, 100ms},
        {"accept4", {EINVAL}, "failed "},
        {"getsockopt", {ENOPROTOOPT}, " two"},
        {"recv", {EINTR}, "one two", 1, 50},
        {"recv", {EAGAIN}, "one two"},
        {"recv", {ECONNRESET}, " two"},
        {"recv", {Fault::kShort}, "on two"}, // a short chunk is the last one
        {"send", {EINTR}, "one two", 1, 50},
        {"send", {EAGAIN, EPIPE, ECONNRESET}, " two"},
        {"send", {Fault::kShort}, "on two"},
        {"close", {EINTR, EIO}, "one two"},
    };
    check(table, "one two", [this](TestEndpoint& endpoint, const Fault* fault) {
        startListening(endpoint);
        const std::array peers{connectTo(path), connectTo(path)};
        sendAll(peers[0], "one");
        sendAll(peers[1], "two");
        const bool listens = under(fault, [&] {
            bool still = true;
            while (still && !(isReadable(peers[0]) && isReadable(peers[1])))
                still = !answerNext(endpoint).empty();
            return still;
        });
        if (!listens)
            endpoint.cleanup();
        return (listens ? receiveAll(peers[0]) : "failed" + receiveAll(peers[0])) + " " + receiveAll(peers[1]);
    });
}

//! Whoever closes a message with a descriptor waits for that descriptor's sake: as long as its sender likes, on a
//! system that passes it.
TEST_F(CommsFaults, CostNobodyBesideAPeerThatSendsADescriptorWhichLingers) {
    for (const bool passesIt : {true, false}) {
        TestEndpoint endpoint(path, {1, 3s});
        {
            const Fault old{"setsockopt", ENOPROTOOPT};
            const Faults faults(passesIt ? std::vector{old} : std::vector<Fault>());
            EXPECT_TRUE(endpoint.createBinding());
        }
        takeIn(endpoint);
        std::vector<UniqueFd> hostile;
        std::vector<UniqueFd> kept;
        for (int peer = 0; peer < 3; ++peer) {
            hostile.push_back(connectTo(path));
            kept.push_back(sendLingering(hostile.back()));
            EXPECT_TRUE(kept.back() || !passesIt);
        }
        const std::jthread listener([&] {
            while (!answerNext(endpoint).empty()) {
            }
            endpoint.cleanup();
        });
        const auto begin = Deadline::Clock::now();
        const UniqueFd peer = connectTo(path);
        sendAll(peer, "one");
        EXPECT_EQ(receiveAll(peer), "one");
        endpoint.shutdown();
        EXPECT_LT(Deadline::Clock::now() - begin, 1s);
    }
}

//! A silent peer is dropped only for one that waits, not for a full table alone, and is served however many follow.
TEST_F(CommsFaults, CostAWaitingPeerItsPlaceOnlyForAnotherOne) {
    TestEndpoint endpoint(path);
    startListening(endpoint);
    std::vector<UniqueFd> silent;
    const auto connectSilent = [&]() -> const UniqueFd& {
        takeIn(endpoint);
        silent.push_back(connectTo(path));
        takeIn(endpoint, 1);
        return silent.back();
    };
    const auto connectSpeaker = [this] {
        UniqueFd peer = connectTo(path);
        sendAll(peer, "one");
        return peer;
    };
    for (const bool seenByPoll : {true, false}) {
        const UniqueFd& waiting = connectSilent();
        const UniqueFd peer = connectSpeaker();
        const Faults faults({{"accept4", EMFILE, seenByPoll ? 1 : 2}, {"poll", ENOMEM, seenByPoll ? 3 : 2}});
        EXPECT_EQ(answerNext(endpoint), "one");
        EXPECT_EQ(seenByPoll ? "" : answerNext(endpoint), "");
        EXPECT_EQ(isReadable(waiting), seenByPoll) << "closed";
    }
    const UniqueFd& patient = connectSilent();
    std::vector<UniqueFd> others;
    others.push_back(connectSpeaker());
    EXPECT_EQ(answerNext(endpoint), "one");
    sendAll(patient, "patient");
    do
        others.push_back(connectSpeaker());
    while (answerNext(endpoint) != "patient" && others.size() < 30);
    EXPECT_LT(others.size(), 20U);
}

} // namespace
} // namespace fv2::test
