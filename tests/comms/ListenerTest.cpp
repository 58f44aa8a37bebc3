// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "TestEndpoint.h"
#include "support/LogScope.h"
#include "support/RawSocket.h"

#include <gtest/gtest.h>

#include <ctime>
#include <mutex>
#include <sched.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <tuple>
#include <vector>

namespace {
std::atomic<std::int64_t> secondsAhead = 0;
}

//! In place of the C library's own: steady time can be told to be later than it is.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const auto result = static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
    if (clock == CLOCK_MONOTONIC)
        time->tv_sec += secondsAhead;
    return result;
}

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

using Clock = Deadline::Clock;

const std::string kAnswer = R"("{ "result": 0 }")";

struct Message {
    std::string text;
    std::size_t byteCount;
    bool cut;
};

//! Listens and answers on a thread of its own, as the agent does.
class Serving {
public:
    explicit Serving(const std::string& path, PeerPolicy trusted = PeerPolicy::rootOrSelf())
        : m_endpoint(path, {}, std::move(trusted)) {
        EXPECT_TRUE(m_endpoint.createBinding());
        m_thread = std::jthread([this] {
            while (answerNext()) {
            }
        });
        std::ignore = connectTo(path); // back only once it listens
    }
    ~Serving() { stop(); }

    //! How long it took the thread to end.
    Clock::duration stop() {
        const auto begin = Clock::now();
        m_endpoint.shutdown();
        if (m_thread.joinable())
            m_thread.join();
        return Clock::now() - begin;
    }

    //! The messages that came since the last call; ends of peers that had nothing to say left out.
    std::vector<Message> messages() {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_messages, {});
    }

private:
    bool answerNext() {
        FV2SocketComms_ReceivedData message = m_endpoint.listenAcceptAndReceiveData();
        if (!message.socket)
            return false;
        if (message.byteCount > 0) {
            const std::lock_guard lock(m_mutex);
            m_messages.push_back({message.data, message.byteCount, message.cut});
        }
        m_endpoint.send(message.socket.get(), kAnswer);
        m_endpoint.closeAfterAnswer(std::move(message));
        return true;
    }

    TestEndpoint m_endpoint;
    std::mutex m_mutex;
    std::vector<Message> m_messages;
    std::jthread m_thread;
};

class Listener : public testing::Test {
protected:
    //! The answer to one message; all that other peers had sent before has then been looked at.
    [[nodiscard]] std::string exchange(std::string_view text) const {
        const UniqueFd peer = connectTo(m_path);
        sendAll(peer, text);
        return receiveAll(peer);
    }

    TemporaryFolder m_folder;
    const std::string m_path = m_folder / "agent.sock";
};

TEST_F(Listener, ReplacesAStaleFileByASocketThatOnlyItsOwnerMayUse) {
    listenAt(m_path).reset();
    TestEndpoint endpoint(m_path);
    const mode_t previous = ::umask(0);
    EXPECT_TRUE(endpoint.createBinding());
    ::umask(previous);
    struct stat status {};
    EXPECT_EQ(::stat(m_path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFSOCK | 0644U);
    EXPECT_TRUE(endpoint.cleanup());
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_FALSE(endpoint.cleanup());
}

TEST_F(Listener, CanNotHaveAPathThatIsTaken) {
    std::filesystem::create_directory(m_path);
    const auto before = openDescriptors();
    TestEndpoint endpoint(m_path);
    const auto withEndpoint = openDescriptors();
    EXPECT_FALSE(endpoint.createBinding());
    EXPECT_FALSE(TestEndpoint(m_folder / "missing/agent.sock").createBinding());
    EXPECT_EQ(openDescriptors(), withEndpoint);
    EXPECT_EQ(withEndpoint.size(), before.size() + 1) << "its stop signal";
    EXPECT_TRUE(std::filesystem::is_directory(m_path));
}

TEST_F(Listener, ReadsMessagesByTheRulesOfTheWire) {
    struct Case {
        std::string sent;
        std::string text;
        bool cut;
    };
    using std::string;
    const std::vector<Case> table{{"{}", "{}", false},
                                  {string("a\0b", 3), "a", false},
                                  {string("\0abc", 4), "", false},
                                  {string(2048, 'x'), string(2048, 'x'), false},
                                  {string(3000, 'x'), string(3000, 'x'), false},
                                  {string(65535, 'x'), string(65535, 'x'), false},
                                  {string(65536, 'x'), string(65536, 'x'), false},
                                  {string(65537, 'x'), string(65536, 'x'), true}};
    Serving serving(m_path);
    for (const Case& each : table) {
        const auto begin = Clock::now();
        const UniqueFd peer = connectTo(m_path);
        sendAll(peer, each.sent);
        if (each.sent.size() % MessageReader::chunkSize == 0)
            ::shutdown(peer.get(), SHUT_WR);
        EXPECT_EQ(receiveAll(peer), kAnswer) << each.sent.size();
        EXPECT_LT(Clock::now() - begin, 1s) << each.sent.size();
        const auto messages = serving.messages();
        ASSERT_EQ(messages.size(), 1U) << each.sent.size();
        EXPECT_EQ(messages[0].text, each.text);
        EXPECT_EQ(messages[0].cut, each.cut) << each.sent.size();
        EXPECT_EQ(messages[0].byteCount, each.cut ? 65537U : each.sent.size());
    }
}

TEST_F(Listener, AnswersAtOnceBesideManyPeersThatSayNothing) {
    Serving serving(m_path);
    const auto before = openDescriptors().size();
    std::vector<UniqueFd> silent;
    for (int peer = 0; peer < 150; ++peer) {
        silent.push_back(connectTo(m_path));
        if (peer % 50 != 49)
            continue;
        const auto begin = Clock::now();
        EXPECT_EQ(exchange("{}"), kAnswer);
        EXPECT_LT(Clock::now() - begin, 100ms) << "beside " << silent.size();
    }
    EXPECT_LE(openDescriptors().size(), before + silent.size() + IncomingConnections::maxOpen);
    EXPECT_EQ(receiveAll(silent.front()), "") << "the oldest one made room";
    pollfd youngest{silent.back().get(), POLLIN, 0};
    EXPECT_EQ(::poll(&youngest, 1, 0), 0) << "the youngest one is still welcome";
}

TEST_F(Listener, AnswersASenderOfTooMuchBeforeItHearsTheEnd) {
    Serving serving(m_path);
    const std::string tooMuch(1024 * 1024, 'x');
    for (int round = 0; round < 200; ++round) {
        const UniqueFd peer = connectTo(m_path);
        ASSERT_TRUE(sendAll(peer, tooMuch)) << round;
        ASSERT_EQ(receiveAll(peer), kAnswer) << round;
    }
    const auto messages = serving.messages();
    EXPECT_EQ(messages.size(), 200U);
    EXPECT_TRUE(std::all_of(messages.begin(), messages.end(), [](const Message& each) { return each.cut; }));
}

TEST_F(Listener, HearsOutAPeerThatGoesOnSendingBehindItsAnswer) {
    // Both parts are read to their last byte: only what follows is unread when the connection closes.
    for (const std::size_t firstPart : {std::size_t{10}, IncomingConnections::maxMessage + MessageReader::chunkSize}) {
        TestEndpoint endpoint(m_path);
        ASSERT_TRUE(endpoint.createBinding());
        StopSignal handedOut;
        bool sent = false;
        std::string answer;
        std::jthread peer([&] {
            const UniqueFd socket = connectTo(m_path);
            sendAll(socket, std::string(firstPart, 'x'));
            std::ignore = handedOut.waitFor(-1, 0, Deadline(5s));
            sent = sendAll(socket, std::string(1024 * 1024, 'x'));
            answer = receiveAll(socket);
            endpoint.shutdown();
        });
        FV2SocketComms_ReceivedData message = endpoint.listenAcceptAndReceiveData();
        EXPECT_EQ(message.cut, firstPart > IncomingConnections::maxMessage);
        const bool waitsForMore = !message.cut;
        if (waitsForMore) {
            handedOut.raise();
            pollfd more{message.socket.get(), POLLIN, 0};
            EXPECT_EQ(::poll(&more, 1, 5000), 1);
        }
        endpoint.send(message.socket.get(), kAnswer);
        endpoint.closeAfterAnswer(std::move(message));
        handedOut.raise();
        EXPECT_FALSE(endpoint.listenAcceptAndReceiveData().socket);
        peer.join();
        EXPECT_TRUE(sent) << firstPart;
        EXPECT_EQ(answer, kAnswer) << firstPart;
    }
}

TEST_F(Listener, LivesOnWhenPeersLeaveBeforeTheirAnswer) {
    Serving serving(m_path);
    for (int round = 0; round < 100; ++round)
        sendAll(connectTo(m_path), round % 3 == 0 ? "" : std::string(round % 3 == 1 ? 10 : 4096, 'x'));
    EXPECT_EQ(exchange("{}"), kAnswer);
    EXPECT_EQ(serving.messages().size(), 67U);
}

TEST_F(Listener, ReadsNothingFromAStranger) {
    const LogScope log(FV2LoggingLevel::error);
    Serving serving(m_path, nobodyHere());
    EXPECT_EQ(exchange("{}"), "");
    EXPECT_EQ(exchange("{}"), "");
    EXPECT_TRUE(serving.messages().empty());
    serving.stop();
    EXPECT_EQ(log.messages().back(),
              "listenAcceptAndReceiveData() - refused a stranger, uid:" + std::to_string(::getuid()));
}

TEST_F(Listener, GivesAPeerTenSecondsInAllAndFiveForTheNextChunk) {
    const std::string chunk(MessageReader::chunkSize, 'x');
    Serving serving(m_path);
    const UniqueFd silent = connectTo(m_path);
    const UniqueFd pausing = connectTo(m_path);
    const UniqueFd slow = connectTo(m_path);
    sendAll(pausing, chunk);
    const auto after = [&](int seconds) {
        sendAll(slow, chunk);
        EXPECT_EQ(exchange("now"), kAnswer);
        secondsAhead += seconds;
        EXPECT_EQ(exchange("later"), kAnswer);
        std::vector<std::size_t> sizes;
        for (const Message& each : serving.messages())
            sizes.push_back(each.byteCount);
        return sizes;
    };
    EXPECT_EQ(after(4), (std::vector<std::size_t>{3, 5}));
    EXPECT_EQ(after(2), (std::vector<std::size_t>{3, 2048, 5})) << "no chunk for 6 s";
    EXPECT_EQ(after(3), (std::vector<std::size_t>{3, 5}));
    pollfd still{silent.get(), POLLIN, 0};
    EXPECT_EQ(::poll(&still, 1, 0), 0) << "9 s are not too much";
    EXPECT_EQ(after(2), (std::vector<std::size_t>{3, 4 * 2048, 5})) << "11 s, though a chunk came every few";
    EXPECT_EQ(receiveAll(silent), kAnswer);
    secondsAhead = 0;
}

TEST_F(Listener, EndsWithinMomentsInWhateverStateItIs) {
    {
        TestEndpoint endpoint(m_path);
        EXPECT_TRUE(endpoint.createBinding());
        endpoint.shutdown();
        const auto begin = Clock::now();
        EXPECT_FALSE(endpoint.listenAcceptAndReceiveData().socket) << "before accepting";
        EXPECT_FALSE(endpoint.listenAcceptAndReceiveData().socket) << "and ever after";
        EXPECT_LT(Clock::now() - begin, 200ms);
    }
    Serving waiting(m_path);
    EXPECT_LT(waiting.stop(), 200ms);
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_LT(waiting.stop(), 200ms) << "again";

    Serving reading(m_path);
    const UniqueFd half = connectTo(m_path);
    sendAll(half, std::string(2048, 'x'));
    const UniqueFd draining = connectTo(m_path);
    sendAll(draining, std::string(100'000, 'x'));
    EXPECT_EQ(exchange("{}"), kAnswer);
    EXPECT_LT(reading.stop(), 200ms) << "in the middle of messages";
}

TEST_F(Listener, RemovesItsFileWhicheverThreadRunsFirst) {
    cpu_set_t previous;
    ::sched_getaffinity(0, sizeof previous, &previous);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<unsigned>(::sched_getcpu()), &one);
    // On one processor the woken listener often runs before the call that woke it goes on.
    ::sched_setaffinity(0, sizeof one, &one);
    int left = 0;
    for (int round = 0; round < 300; ++round) {
        Serving serving(m_path);
        serving.stop();
        left += std::filesystem::exists(m_path) ? 1 : 0;
    }
    ::sched_setaffinity(0, sizeof previous, &previous);
    EXPECT_EQ(left, 0) << "files left of 300";
}

TEST_F(Listener, MayCleanUpWhileItIsShutDown) {
    for (int round = 0; round < 300; ++round) {
        TestEndpoint endpoint(m_path);
        ASSERT_TRUE(endpoint.createBinding());
        const std::jthread listening([&] {
            std::ignore = endpoint.listenAcceptAndReceiveData();
            endpoint.cleanup();
        });
        std::ignore = connectTo(m_path);
        endpoint.shutdown();
    }
}

TEST_F(Listener, KeepsNoDescriptorAndPassesNoneOn) {
    const auto inherited = openDescriptors(true);
    const auto before = openDescriptors();
    {
        Serving serving(m_path);
        const UniqueFd idle = connectTo(m_path);
        const UniqueFd tooMuch = connectTo(m_path);
        sendAll(tooMuch, std::string(100'000, 'x'));
        for (int round = 0; round < 20; ++round)
            EXPECT_EQ(exchange("{}"), kAnswer);
        EXPECT_EQ(openDescriptors(true), inherited);
    }
    EXPECT_EQ(openDescriptors(), before);
}

//! Takes every descriptor that is left, for a scope, once no more than `settled` are open.
class FullDescriptorTable {
public:
    explicit FullDescriptorTable(std::size_t settled) {
        for (const Deadline deadline(2s); openDescriptors().size() > settled && !deadline.passed();)
            std::this_thread::sleep_for(1ms);
        ::getrlimit(RLIMIT_NOFILE, &m_previous);
        const rlimit few{static_cast<rlim_t>(*openDescriptors().rbegin() + 10), m_previous.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &few);
        for (UniqueFd fd; (fd = UniqueFd(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)));)
            m_taken.push_back(std::move(fd));
    }
    ~FullDescriptorTable() { ::setrlimit(RLIMIT_NOFILE, &m_previous); }
    FullDescriptorTable(const FullDescriptorTable&) = delete;
    FullDescriptorTable& operator=(const FullDescriptorTable&) = delete;

private:
    rlimit m_previous{};
    std::vector<UniqueFd> m_taken;
};

TEST_F(Listener, LivesThroughAFullDescriptorTable) {
    const auto before = openDescriptors().size();
    Serving serving(m_path);
    const UniqueFd first = newSocket();
    {
        const FullDescriptorTable full(before + 3);
        ASSERT_TRUE(connectTo(m_path, first));
        sendAll(first, "{}");
        const std::clock_t begin = std::clock();
        std::this_thread::sleep_for(400ms);
        EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 0.1) << "seconds of processor time";
        pollfd answer{first.get(), POLLIN, 0};
        EXPECT_EQ(::poll(&answer, 1, 0), 0) << "was not full";
    }
    EXPECT_EQ(receiveAll(first), kAnswer) << "as soon as there is room";

    const UniqueFd idle = connectTo(m_path);
    EXPECT_EQ(exchange("{}"), kAnswer);
    const UniqueFd second = newSocket();
    const FullDescriptorTable full(before + 6);
    ASSERT_TRUE(connectTo(m_path, second));
    sendAll(second, "{}");
    EXPECT_EQ(receiveAll(second), kAnswer) << "the idle peer makes room";
    EXPECT_EQ(receiveAll(idle), "");
}

TEST_F(Listener, IsNotHarmedByInterruptedCalls) {
    TestEndpoint endpoint(m_path);
    ASSERT_TRUE(endpoint.createBinding());
    std::atomic<int> answered = 0;
    const std::jthread peers([&] {
        SignalStorm::keepOffThisThread();
        for (int round = 0; round < 50; ++round) {
            const UniqueFd peer = connectTo(m_path);
            std::this_thread::sleep_for(3ms);
            sendAll(peer, std::string(round % 2 == 0 ? 5000 : 300'000, 'x'));
            answered += receiveAll(peer) == kAnswer ? 1 : 0;
        }
        endpoint.shutdown();
    });
    const SignalStorm storm;
    for (;;) {
        FV2SocketComms_ReceivedData message = endpoint.listenAcceptAndReceiveData();
        if (!message.socket)
            break;
        EXPECT_TRUE(message.cut ? message.byteCount > 65536 : message.byteCount == 5000) << message.byteCount;
        endpoint.send(message.socket.get(), kAnswer);
        endpoint.closeAfterAnswer(std::move(message));
    }
    EXPECT_EQ(answered, 50);
}

} // namespace
} // namespace fv2::test
