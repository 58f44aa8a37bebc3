// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "service/Harness.h"

#include <fstream>
#include <sys/resource.h>

namespace fv2::service::test {

namespace {

struct ConnectionTest : ProtocolTest {
    void SetUp() override { ASSERT_EQ(server.listenOn(path), ""); }
    std::string statusRequest = request("get_status");
    std::string goodReply = statusReply(EngineStatus{});
};

TEST_F(ConnectionTest, JoinsARequestThatComesInPieces) {
    const UniqueFd socket = connectTo(path);
    for (const char byte : statusRequest) {
        say(socket, {&byte, 1});
        workUntil([] { return true; });
    }
    EXPECT_EQ(hear(socket), goodReply);
}

TEST_F(ConnectionTest, RefusesARequestThatIsTooLongOrNeverEnds) {
    const std::string refused = R"({"result":false,"success":false,"error_code":1})";
    EXPECT_EQ(ask(R"({"command":"get_status","padding":")" + std::string(limits.requestBytes + 5'000, 'x')), refused);
    EXPECT_EQ(ask(statusRequest.substr(0, statusRequest.size() - 1)), refused);
    EXPECT_EQ(hear(connectTo(path)), "");
    EXPECT_TRUE(ended);

    const std::string padding = R"(,"padding":")";
    const std::size_t filler = limits.requestBytes - request("get_status", padding + '"').size();
    EXPECT_EQ(ask(request("get_status", padding + std::string(filler, 'x') + '"')), goodReply);
}

TEST_F(ConnectionTest, MisbehavesAsTold) {
    struct Case {
        ReplyFault fault;
        std::function<bool(const std::string&)> asExpected;
        bool closes;
    };
    const auto isEmpty = [](const std::string& heard) { return heard.empty(); };
    const std::vector<Case> cases{
        {{FaultKind::Close, {}, 0}, isEmpty, true},
        {{FaultKind::Silent, {}, 0}, isEmpty, false},
        {{FaultKind::Slow, ms(60'000), 0}, isEmpty, false},
        {{FaultKind::Half, {}, 0},
         [this](const std::string& heard) { return heard == goodReply.substr(0, goodReply.size() / 2); },
         true},
        {{FaultKind::Error, {}, 255},
         [](const std::string& heard) { return heard == R"({"result":false,"success":false,"error_code":255})"; },
         true},
        {{FaultKind::Garbage, {}, 0},
         [](const std::string& heard) { return heard.size() == 256 && isWhole(heard); },
         true},
        {{FaultKind::Endless, {}, 0}, [](const std::string& heard) { return heard.size() >= 200'000; }, true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(faultText(one.fault));
        fault = one.fault;
        const UniqueFd socket = connectTo(path);
        say(socket, statusRequest);
        EXPECT_TRUE(one.asExpected(hear(socket, one.closes ? ms(5'000) : ms(100))));
        EXPECT_EQ(ended, one.closes);
        EXPECT_TRUE(reported("connection meets fault " + faultText(one.fault)));
    }
}

TEST_F(ConnectionTest, EndsEveryMisbehaviourInTime) {
    fault = {FaultKind::Slow, ms(100), 0};
    EXPECT_EQ(ask(statusRequest), goodReply);
    for (const FaultKind kind : {FaultKind::Silent, FaultKind::Endless}) {
        fault.kind = kind;
        const UniqueFd socket = connectTo(path);
        say(socket, statusRequest);
        hear(socket, ms(3'000), std::numeric_limits<std::size_t>::max());
        EXPECT_TRUE(ended) << faultText(fault);
    }
}

TEST_F(ConnectionTest, PeersThatHangAroundOrRunAwayHoldNobodyUp) {
    fault = {FaultKind::Silent, {}, 0};
    std::vector<UniqueFd> hanging;
    for (std::size_t count = 0; count + 1 < limits.connections; ++count)
        hanging.push_back(connectTo(path));
    ASSERT_TRUE(workUntil([&] { return lines.size() == limits.connections; }));
    fault = {};
    EXPECT_EQ(ask(statusRequest), goodReply);
    hanging.clear();
    for (int round = 0; round < 20; ++round)
        say(connectTo(path), statusRequest);
    EXPECT_EQ(ask(statusRequest), goodReply);
}

TEST_F(ConnectionTest, BacksOffWhileNoDescriptorIsLeft) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the checker needs descriptors of its own";
#endif
    const UniqueFd socket = connectTo(path);
    say(socket, statusRequest);
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{static_cast<rlim_t>(socket.get()) + 1, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    int passes = 0;
    workUntil([&passes] { return ++passes < 0; }, ms(200));
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_LT(passes, 100);
    EXPECT_EQ(hear(socket), goodReply);
}

TEST_F(ConnectionTest, TakesAPathOnlyWhenNobodyElseHasIt) {
    ListeningSocket second;
    EXPECT_NE(second.open(path).find("served by another process"), std::string::npos);
    EXPECT_NE(second.open("/" + std::string(200, 'x')), "");

    const std::string file = folder / "file";
    std::ofstream(file) << "precious";
    EXPECT_NE(second.open(file).find("not a socket"), std::string::npos);
    EXPECT_EQ(std::filesystem::file_size(file), 8U);

    const std::string stale = folder / "stale";
    const auto address = unixAddress(stale);
    ASSERT_EQ(::bind(makeUnixSocket().get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address), 0);
    EXPECT_EQ(second.open(stale), "");
    EXPECT_EQ(std::filesystem::status(stale).permissions(), std::filesystem::perms(0666));
}

TEST_F(ConnectionTest, TakesAwayItsOwnFileOnly) {
    const std::string mine = folder / "mine";
    const std::string replaced = folder / "replaced";
    {
        ListeningSocket first;
        ListeningSocket second;
        ASSERT_EQ(first.open(mine) + second.open(replaced), "");
        std::filesystem::remove(replaced);
        std::ofstream(replaced) << "another's";
    }
    EXPECT_FALSE(std::filesystem::exists(mine));
    EXPECT_TRUE(std::filesystem::exists(replaced));
}

} // namespace

} // namespace fv2::service::test
