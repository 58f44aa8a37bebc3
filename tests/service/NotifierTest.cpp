// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "service/Harness.h"

namespace fv2::service::test {

namespace {

//! Plays the agents' side: a socket that listens, and takes connections when told to.
struct NotifierTest : ProtocolTest {
    void SetUp() override {
        const auto address = unixAddress(agentPath);
        ASSERT_EQ(::bind(agent.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address), 0);
        ASSERT_EQ(::listen(agent.get(), 0), 0);
        ASSERT_EQ(server.listenOn(path), "");
        ownToken = token();
    }

    UniqueFd accept() {
        UniqueFd socket;
        workUntil([&] {
            socket.reset(::accept4(agent.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
            return socket.isOpen();
        });
        return socket;
    }

    bool nobodyComes() {
        return !workUntil([&] { return ::poll(&waiting, 1, 0) == 1; }, ms(50));
    }

    long count(std::string_view outcome) {
        return std::ranges::count(lines, "pushed to uid " + uid + ": " + std::string(outcome));
    }

    const std::string agentPath = folder / ("ormfv2_ui_" + uid + ".sock");
    std::string ownToken;
    UniqueFd agent = makeUnixSocket();
    pollfd waiting{agent.get(), POLLIN, 0};
};

TEST_F(NotifierTest, JudgesTheAgentsAnswer) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"("{ "result": 0 }")", "answered"},
        {R"({ "result": 0 })", "answered"},
        {R"("{ "result": 1 }")", "failed, not handled"},
        {R"("{ "result": "0" }")", "failed, answer not understood"},
        {R"("{ result: 0 }")", "failed, answer not understood"},
        {"", "failed, hung up"},
    };
    for (const auto& [answer, outcome] : cases) {
        SCOPED_TRACE(answer);
        lines.clear();
        notifier.notifyAll();
        UniqueFd connection = accept();
        std::array<char, 100> heard{};
        ASSERT_TRUE(workUntil([&] { return ::recv(connection.get(), heard.data(), heard.size(), 0) > 0; }));
        EXPECT_STREQ(heard.data(), R"({ "command": "status_changed" })");
        const std::size_t half = answer.size() / 2;
        say(connection, answer.substr(0, half));
        workUntil([] { return false; }, ms(10));
        say(connection, answer.substr(half));
        connection.reset();
        EXPECT_TRUE(workUntil([this, &expected = outcome] { return count(expected) == 1; }));
    }
}

TEST_F(NotifierTest, WhatComesDuringAPushBecomesOneMore) {
    notifier.notifyAll();
    UniqueFd connection = accept();
    for (int change = 0; change < 5; ++change)
        notifier.notifyAll();
    EXPECT_TRUE(nobodyComes());
    say(connection, R"("{ "result": 0 }")");
    say(accept(), R"("{ "result": 0 }")");
    EXPECT_TRUE(workUntil([&] { return count("answered") == 2; }));
    EXPECT_TRUE(nobodyComes());
}

TEST_F(NotifierTest, AnAgentThatHangsIsGivenUpButRemembered) {
    notifier.notifyAll();
    const UniqueFd connection = accept();
    EXPECT_TRUE(workUntil([&] { return count("failed, no answer") == 1; }));

    std::vector<UniqueFd> crowd;
    for (int fill = 0; fill < 3; ++fill) {
        crowd.push_back(makeUnixSocket());
        std::ignore = connectNow(crowd.back().get(), agentPath);
    }
    notifier.notifyAll();
    EXPECT_TRUE(workUntil([&] { return count("failed, no answer") == 2; }));
    EXPECT_FALSE(reported("forgot uid " + uid));
}

TEST_F(NotifierTest, AnAgentThatIsGoneIsForgottenAtTheThirdTimeInARow) {
    std::filesystem::rename(agentPath, folder / "away");
    const auto miss = [this](long times) {
        notifier.notifyAll();
        return workUntil([&] { return count("failed, no agent") == times; }, ms(500));
    };
    EXPECT_TRUE(miss(1) && miss(2));
    token();
    EXPECT_TRUE(miss(3) && miss(4));
    std::filesystem::rename(folder / "away", agentPath);
    notifier.notifyAll();
    say(accept(), R"("{ "result": 0 }")");
    EXPECT_TRUE(workUntil([&] { return count("answered") == 1; }));
    agent.reset();
    EXPECT_TRUE(miss(5) && miss(6));
    EXPECT_FALSE(reported("forgot uid " + uid));
    EXPECT_TRUE(miss(7));
    EXPECT_TRUE(reported("forgot uid " + uid));
    EXPECT_FALSE(miss(8));
}

TEST_F(NotifierTest, TellsNobodyWhoUnsubscribed) {
    ask(request("unsubscribe", R"(,"token":")" + ownToken + '"'));
    notifier.notifyAll();
    EXPECT_TRUE(nobodyComes());
}

TEST_F(NotifierTest, SendsNothingToAStrangerWhoTookTheAgentsPath) {
    // Who listens is who called listen(); root can be another for a moment, anybody else is another anyhow.
    if (::getuid() == 0) {
        ASSERT_EQ(::seteuid(4243), 0);
        ASSERT_EQ(::listen(agent.get(), 0), 0);
        ASSERT_EQ(::seteuid(0), 0);
    }
    std::filesystem::rename(agentPath, folder / "ormfv2_ui_4242.sock");
    notifier.unsubscribe(::getuid());
    notifier.subscribe(4242);
    notifier.notifyAll();
    EXPECT_TRUE(workUntil([&] { return reported("pushed to uid 4242: failed, another user listens there"); }));
    std::array<char, 100> heard{};
    EXPECT_EQ(::recv(accept().get(), heard.data(), heard.size(), 0), 0);
}

} // namespace

} // namespace fv2::service::test
