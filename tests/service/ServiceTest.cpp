// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Server.h"
#include "simulation/Commands.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>

namespace fv2::service::test {

using namespace fv2::test;
using ms = std::chrono::milliseconds;
using Table = std::vector<std::pair<std::string, std::string>>;

const std::string kRefused = R"({"result":false,"success":false,"error_code":)";
const std::string kHandled = R"("{ "result": 0 }")";

//! The service as the program wires it, with short patience, in a folder of its own and on the test's thread; the
//! simulation's time passes only when told.
struct Service : testing::Test, PollClient {
    void SetUp() override { ASSERT_EQ(server.listenOn(path), ""); }
    void prepare(PollSet& set) const override { set.wakeBy(Deadline(ms(2))); }
    void handle(const PollSet& /*set*/) override {}

    //! Lets the service work until `done` holds.
    bool works(const std::function<bool()>& done, ms patience = ms(5'000)) {
        const std::array<PollClient*, 3> clients{&server, &notifier, this};
        for (const Deadline deadline(patience); !done() && !deadline.passed();)
            EXPECT_TRUE(pollOnce(clients));
        return done();
    }
    bool reports(const std::string& line, long times = 1) {
        return works([&] { return std::ranges::count(lines, line) == times; });
    }

    //! Whatever comes until the service closes.
    std::string hear(const UniqueFd& socket) {
        auto heard = std::async(std::launch::async, [&socket] { return receiveAll(socket); });
        works([&heard] { return heard.wait_for(ms(0)) == std::future_status::ready; });
        return heard.get();
    }
    std::string ask(std::string_view request) {
        const UniqueFd socket = connectTo(path);
        EXPECT_TRUE(sendAll(socket, request));
        return hear(socket);
    }
    bool isPushed(ms patience = ms(5'000)) {
        return works([this] { return isReadable(agent); }, patience);
    }
    //! Takes a push at the agent's side and answers it.
    void takePush(const std::string& answer) {
        EXPECT_TRUE(isPushed());
        const UniqueFd connection(::accept4(agent.get(), nullptr, nullptr, SOCK_CLOEXEC));
        EXPECT_EQ(receiveAll(connection, 1), R"({ "command": "status_changed" })");
        sendAll(connection, answer);
    }

    TemporaryFolder folder;
    const std::string path = folder / "service.sock";
    const std::string uid = std::to_string(::getuid());
    const std::string agentPath = folder / ("ormfv2_ui_" + uid + ".sock");
    const std::string pushed = "pushed to uid " + uid + ": ";
    const std::string statusRequest = R"({ "command": "get_status", "a": "}\"}", "uid": )" + uid + '}';
    UniqueFd agent = listenAt(agentPath);
    std::vector<std::string> lines;
    const Report report = [this](std::string_view line) { lines.emplace_back(line); };
    Limits limits{.exchange = ms(500), .misbehaviour = ms(100), .push = ms(500), .connections = 4};
    Notifier notifier{folder.path(), limits, report};
    const std::function<void()> notify = [this] { notifier.notifyAll(); };
    Simulation::TimePoint now{};
    Simulation simulation{{[this] { return now; }, [] { return 1'700'000'000; }, report, notify, [] {}}};
    Commands commands{simulation, {{SCENARIOS}, report, notify, [] {}}};
    RequestHandler handler{simulation, notifier, report};
    Server server{handler, [this] { return simulation.values().fault; }, limits, report};
};

TEST_F(Service, RefusesWhatItCantUnderstandOrMustNotDo) {
    const std::vector<std::pair<std::string, int>> table{
        {"", 1},
        {R"({"command":"get_status","uid":"7"})", 1},
        {R"({"command":"get_status","uid":4294967295})", 1},
        {R"({"command":"proxy_sync","uid":7,"token":1})", 1},
        {R"({"a":)" + std::string(20'000, '['), 1},
        {R"({"command":"format_disk","uid":7})", 2},
        {R"({"command":"get_token","uid":8})", 3},
        {R"({"command":"proxy_sync","uid":7})", 4},
        {R"({"command":"set_user_credentials","uid":7,"token":"0","parameters":{"username":"a","password":"b"}})", 4}};
    for (const auto& [text, code] : table)
        EXPECT_EQ(handler.answer(text, 7), kRefused + std::to_string(code) + '}') << text;
}

TEST_F(Service, ServesWhoHasATokenUntilItUnsubscribesAndTellsCredentialsToNobody) {
    const auto answer = [this](const std::string& command, const std::string& token, const std::string& more = "") {
        return handler.answer(R"({"command":")" + command + R"(","uid":7,"token":")" + token + '"' + more + '}', 7);
    };
    const std::string reply = answer("get_token", "");
    const std::string token = reply.substr(reply.find(R"("token":")") + 9, 32);
    EXPECT_EQ(reply, R"({"result":true,"success":true,"error_code":0,"token":")" + token + "\"}");
    EXPECT_EQ(answer("get_token", ""), reply) << "until then always the same";
    EXPECT_EQ(answer("proxy_sync", token), R"({"result":true,"success":true,"error_code":0})");
    commands.run("credentials refuse 17");
    const std::string credentials = R"(,"parameters":{"username":"ann","password":)";
    EXPECT_EQ(answer("set_user_credentials", token, credentials + "\"horse\"}"), kRefused + "17}");
    EXPECT_EQ(answer("set_user_credentials", token, credentials + "5}"), kRefused + "1}");
    EXPECT_TRUE(std::ranges::none_of(lines, [](const auto& line) { return line.find("horse") != line.npos; }));
    EXPECT_EQ(answer("unsubscribe", "0"), kRefused + "4}");
    EXPECT_EQ(answer("unsubscribe", token), R"({"result":true,"success":true,"error_code":0})");
    EXPECT_EQ(answer("proxy_sync", token), kRefused + "4}");
    EXPECT_NE(answer("get_token", ""), reply);
}

TEST_F(Service, JoinsPiecesForALimitedTime) {
    const UniqueFd socket = connectTo(path);
    sendAll(socket, statusRequest.substr(0, 40));
    works([] { return false; }, ms(20));
    sendAll(socket, statusRequest.substr(40));
    const std::string good = statusReply(simulation.status());
    EXPECT_EQ(hear(socket), good);
    EXPECT_EQ(ask(statusRequest.substr(0, 40)), kRefused + "1}") << "never ended";
    EXPECT_EQ(ask(R"({"a":")" + std::string(limits.requestBytes, 'x')), kRefused + "1}") << "too long";
}

TEST_F(Service, TellsTheAgentsThatAreThereAndJudgesTheirAnswers) {
    for (const std::string name : {"ormfv2_ui_.sock", "ormfv2_ui_4242.sock"}) // nobody's, and not that user's
        listenAt(folder / name).reset();
    notifier.announce();
    const Table table{{kHandled, "answered"},
                      {R"("{ "result": 1 }")", "failed, not handled"},
                      {R"("{ "result": "0" }")", "failed, answer not understood"},
                      {"", "failed, hung up"}};
    for (const auto& [answer, outcome] : table) {
        takePush(answer);
        EXPECT_TRUE(reports(pushed + outcome)) << answer;
        notify();
    }
    EXPECT_TRUE(reports(pushed + "failed, no answer"));
    EXPECT_EQ(lines.size(), 1 + table.size() + 1) << "nobody else";
}

TEST_F(Service, MergesWhatChangesDuringAPush) {
    notifier.subscribe(::getuid());
    for (const std::string line : {"state 5", "state 6", "state 6", "notify", "fault none"})
        commands.run(line);
    takePush(kHandled);
    takePush(kHandled);
    EXPECT_TRUE(reports(pushed + "answered", 2));
    EXPECT_FALSE(isPushed(ms(50)));
    notifier.unsubscribe(::getuid());
    notify();
    EXPECT_FALSE(isPushed(ms(50)));
}

TEST_F(Service, BelievesTheKernelAboutWhoAsksAndWhoListens) {
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0711));
    std::filesystem::rename(agentPath, folder / "ormfv2_ui_4242.sock");
    // Root becomes another user briefly; others are one already.
    ASSERT_EQ(::seteuid(::getuid() == 0 ? 4243 : ::getuid()), 0);
    const UniqueFd stranger = connectTo(path);
    ::listen(agent.get(), 0);
    ASSERT_EQ(::seteuid(::getuid()), 0);
    sendAll(stranger, R"({"command":"get_status","uid":4242})");
    EXPECT_EQ(hear(stranger), kRefused + "3}");
    notifier.subscribe(4242);
    notify();
    EXPECT_TRUE(reports("pushed to uid 4242: failed, another user listens there"));
    EXPECT_EQ(receiveAll(UniqueFd(::accept(agent.get(), nullptr, nullptr))), "");
}

TEST_F(Service, PlaysEveryShippedScenarioToItsEndWithinMinutes) {
    for (const std::string name : {"encrypt", "decrypt", "sync", "faults"}) {
        commands.run("scenario " + name);
        const auto isDone = [&] { return std::ranges::count(lines, "scenario " + name + ": done") == 1; };
        for (const auto end = now + ms(180'000); now < end && !isDone(); now += ms(100)) {
            std::ignore = simulation.takeCredentials(1, "a", "b");
            std::ignore = simulation.startSync();
            simulation.advance();
        }
        EXPECT_TRUE(isDone()) << name;
    }
}

} // namespace fv2::service::test
