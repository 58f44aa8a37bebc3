// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "service/Harness.h"

namespace fv2::service::test {

namespace {

const std::string refused = R"({"result":false,"success":false,"error_code":)";

TEST(IsWhole, SaysWhetherFurtherBytesCouldMatter) {
    const std::vector<std::pair<std::string, bool>> cases{
        {"", false},
        {" \n", false},
        {"{ \"command\": \"get_", false},
        {"{ \"a\": { \"b\": [ 1 ] }", false},
        {R"({ "a": "}" )", false},
        {R"({ "a": "\"}" )", false},
        {R"({ "a": "\\" })", true},
        {"\n{\n  \"a\": [ {} ]\n}", true},
        {"{}", true},
        {"hello", true},
        {"[", true},
    };
    for (const auto& [text, whole] : cases)
        EXPECT_EQ(isWhole(text), whole) << text;
}

struct HandlerTest : ProtocolTest {};

TEST_F(HandlerTest, RefusesWhatItCantUnderstandOrMustNotDo) {
    const std::string deep(20'000, '[');
    const std::vector<std::pair<std::string, int>> cases{
        {"", 1},
        {"hello", 1},
        {"[]", 1},
        {R"({"uid":7})", 1},
        {R"({"command":"get_status"})", 1},
        {R"({"command":"get_status","uid":"7"})", 1},
        {R"({"command":"get_status","uid":-7})", 1},
        {R"({"command":"get_status","uid":7.0})", 1},
        {R"({"command":"get_status","uid":4294967295})", 1},
        {R"({"command":"get_status","uid":4294967303})", 1},
        {R"({"command":"get_status","uid":7} {})", 1},
        {R"({"command":3,"uid":7})", 1},
        {R"({"command":"proxy_sync","uid":7,"token":1})", 1},
        {R"({"a":)" + deep, 1},
        {R"({"command":"format_disk","uid":7})", 2},
        {R"({"command":"get_token","uid":8})", 3},
        {R"({"command":"proxy_sync","uid":7})", 4},
        {R"({"command":"unsubscribe","uid":7,"token":""})", 4},
        {R"({"command":"set_user_credentials","uid":7,"token":"0","parameters":{"username":"a","password":"b"}})", 4},
    };
    for (const auto& [text, code] : cases)
        EXPECT_EQ(handler.answer(text, 7), refused + std::to_string(code) + '}') << text;
    EXPECT_TRUE(engine.asked.empty());
}

TEST_F(HandlerTest, BelievesTheConnectionAboutWhoAsks) {
    ASSERT_EQ(server.listenOn(path), "");
    const std::string forAnother = R"({"command":"get_status","uid":4242})";
    if (::getuid() != 0) {
        EXPECT_EQ(ask(forAnother), refused + "3}");
        return;
    }
    EXPECT_EQ(ask(forAnother), statusReply(engine.answer)) << "root may speak for anybody";
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0711));
    ASSERT_EQ(::seteuid(4243), 0);
    const UniqueFd stranger = connectTo(path);
    ASSERT_EQ(::seteuid(0), 0);
    say(stranger, forAnother);
    EXPECT_EQ(hear(stranger), refused + "3}");
    EXPECT_TRUE(reported("request refused: uid 4243 asked for uid 4242"));
}

TEST_F(HandlerTest, TellsTheEnginesStatusWithAndWithoutPolicy) {
    engine.answer = {5, 42, "u-1", "2.\xff", true, false, 1700000000, 15};
    EXPECT_EQ(handler.answer(R"({ "command": "get_status" , "uid" : 7 })", 7),
              R"({"result":true,"error_code":0,"status":{"state":5,"progress":42,"uuid":"u-1","version":"2.�",)"
              R"("sync_active":1,"sync_ok":0,"sync_last":1700000000},"policy":{"postponecredentialmins":15}})");
    engine.answer.postponeMinutes.reset();
    EXPECT_EQ(handler.answer(R"({"command":"get_status","uid":7})", 7).find("policy"), std::string::npos);
}

TEST_F(HandlerTest, ATokenIsTheUsersOwnUntilItUnsubscribes) {
    ASSERT_EQ(server.listenOn(path), "");
    const std::string first = token();
    ASSERT_EQ(first.size(), 32U);
    EXPECT_EQ(first.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(token(), first);

    const std::string guarded = "{\n    \"command\": \"proxy_sync\",\n    \"uid\" : " + uid + ",\n    \"token\": \"";
    const std::string accepted = R"({"result":true,"success":true,"error_code":0})";
    EXPECT_EQ(ask(guarded + first + "\"\n}"), accepted);
    engine.outcome = {false, 21};
    EXPECT_EQ(ask(guarded + first + "\"\n}"), refused + "21}");
    EXPECT_EQ(engine.asked, (std::vector<std::string>{"sync", "sync"}));

    EXPECT_EQ(ask(request("unsubscribe", R"(,"token":")" + first + '"')), accepted);
    EXPECT_EQ(ask(guarded + first + "\"\n}"), refused + "4}");
    EXPECT_NE(token(), first);
}

TEST_F(HandlerTest, HandsCredentialsToTheEngineAndToNoLine) {
    ASSERT_EQ(server.listenOn(path), "");
    const std::string head = R"(,"token":")" + token() + R"(","parameters":{"username":"ann")";
    EXPECT_EQ(ask(request("set_user_credentials", head + '}')), refused + "1}");
    EXPECT_EQ(ask(request("set_user_credentials", head + R"(,"password":5})")), refused + "1}");
    ask(request("set_user_credentials", head + R"(,"password":"p\"w\u00e9"})"));
    engine.outcome = {false, 17};
    EXPECT_EQ(ask(request("set_user_credentials", head + R"(,"password":""})")), refused + "17}");
    EXPECT_EQ(engine.asked, (std::vector<std::string>{uid + " ann p\"wé", uid + " ann "}));
    for (const std::string& line : lines)
        EXPECT_EQ(line.find("p\"w"), std::string::npos) << line;
    EXPECT_TRUE(reported("credentials of uid " + uid + ": refused with error 17"));
}

} // namespace

} // namespace fv2::service::test
