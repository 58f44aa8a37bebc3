// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "TestEndpoint.h"
#include "comms/FV2Records.h"
#include "comms/FV2Requests.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace std::string_literals;

namespace fv2::test {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(Requests, AreThePeersTextsByteForByte) {
    const std::string token = "\"},{\\\n\x01\x1F\x7F\u00E4\u2028";
    const std::string escaped = "\\\"},{\\\\\\u000a\\u0001\\u001f\x7F\u00E4\u2028";
    const Pairs table{
        {showUiRequest(), "{ \"command\": \"show_ui\" }"},
        {getStatusRequest(501), "{ \"command\": \"get_status\" , \"uid\" : 501 }"},
        {getTokenRequest(4294967295), "{ \"command\": \"get_token\", \"uid\" : 4294967295  }"},
        {proxySyncRequest(0, token),
         "{\n    \"command\": \"proxy_sync\",\n    \"uid\" : 0,\n    \"token\": \"" + escaped + "\"\n}"},
        {unsubscribeRequest(501, ""),
         "{\n    \"command\": \"unsubscribe\",\n    \"uid\" : 501,\n    \"token\": \"\"\n}"},
        {notificationReply(true) + notificationReply(false), "\"{ \"result\": 0 }\"\"{ \"result\": 1 }\""},
        {std::string(
             jsonSetPWCommand{.uid = 501, .token = token, .parameters = {token + "u", token + "p"}}.encoded().text()),
         R"({"command":"set_user_credentials","uid":501,"token":")" + escaped + R"(","parameters":{"username":")" +
             escaped + R"(u","password":")" + escaped + R"(p"}})"}};
    for (const auto& [text, expected] : table)
        EXPECT_EQ(text, expected);
}

//! The records that can be decoded from a text: Status, Answer, Token, Command.
std::string decodable(const std::string& text) {
    return std::string(FV2EISResponse::decode(text) ? "S" : "") + (FV2AISResponse::decode(text) ? "A" : "") +
           (FV2CommsToken::decode(text) ? "T" : "") + (FV2AISCommand::decode(text) ? "C" : "");
}

TEST(Records, AreWholeJsonObjectsWithValuesOfTheirTypes) {
    const std::string deep = std::string(63, '[') + std::string(63, ']');
    for (const std::string& text : {"{}"s, " \t\r\n{ } \n"s, R"({"x":)" + deep + "}",
                                    R"({"x":")" + std::string(100, '[') + R"(\"{{","y":[1.5,null]})"})
        EXPECT_EQ(decodable(text), "SATC") << text;
    for (const std::string& text : {R"({"x":[)" + deep + "]}", std::string(1'000'000, '['), "{}\0"s, ""s, "[]"s,
                                    "null"s, R"("{ "result": 0 }")"s, "{"s, "{}}"s, "{} x"s, R"({"x":1,})"s, "{/**/}"s,
                                    "{\"x\":\"a\nb\"}"s, "{\"x\":\"\xC0\xAF\"}"s, "{\"x\":\"\xED\xA0\x80\"}"s})
        EXPECT_EQ(decodable(text), "") << text.substr(0, 80);

    const std::string integer = " null 0 9223372036854775807 -9223372036854775808 ";
    // The wire text with % for the value, the values that it may have, the records that care for no such value.
    const std::vector<std::tuple<std::string, std::string, std::string>> table{
        {R"({"error_code":%})", integer, "C"},
        {R"({"status":%})", " null {} ", "ATC"},
        {R"({"policy":%})", " null {} ", "ATC"},
        {R"({"status":{"uuid":%}})", " null \"1\" ", "ATC"},
        {R"({"policy":{"postponecredentialmins":%}})", integer, "ATC"},
        {R"({"result":%})", " null true ", "STC"},
        {R"({"success":%})", " null true ", "SC"},
        {R"({"token":%})", " null \"1\" ", "SAC"},
        {R"({"command":%})", " null \"1\" ", "SAT"}};
    for (const auto& [text, allowed, others] : table)
        for (const std::string value : {"null", "true", "0", "\"1\"", "{}", "[]", "1.0", "9223372036854775807",
                                        "9223372036854775808", "-9223372036854775808", "-9223372036854775809"}) {
            const std::string full = std::string(text).replace(text.find('%'), 1, value);
            EXPECT_EQ(decodable(full), allowed.find(" " + value + " ") != text.npos ? "SATC" : others) << full;
        }
}

TEST(Records, TakeOfTheServicesTextsWhatPeopleCanReadAndTokensWhole) {
    const std::string name = std::string(199, 'x') + "\u00fc";
    const std::string sent = "\u202E\u0007" + name + std::string(1'000'000, 'y');
    const auto status = FV2EISResponse::decode(R"({"status":{"uuid":")" + sent.substr(4) + R"(","version":")" +
                                               std::string(sent).replace(3, 1, "\\u0007") + R"("}})")
                            .value()
                            .status.value();
    EXPECT_EQ(status.version, name);
    EXPECT_EQ(status.uuid, name);
    EXPECT_EQ(FV2CommsToken::tokenOf(R"({"token":")" + sent.substr(4) + R"("})"), sent.substr(4));
}

TEST(Records, JudgeAnAnswerByItsResultThenItsSuccessAndGiveATokenOnlyWithoutAnError) {
    const auto ok = [](const char* text) { return FV2AISResponse::decode(text)->ok(); };
    EXPECT_TRUE(ok(R"({"success":true})") && ok(R"({"result":true,"success":false})"));
    EXPECT_FALSE(ok(R"({"error_code":0})") || ok(R"({"result":false,"success":true})"));
    const auto tokenOf = &FV2CommsToken::tokenOf;
    EXPECT_EQ(tokenOf(R"({"token":"t"})") + tokenOf(R"({"token":"u","success":true,"error_code":0})"), "tu");
    EXPECT_EQ(tokenOf(R"({"token":"t","success":false})"), "");
    EXPECT_EQ(tokenOf(R"({"token":"t","success":true,"error_code":-1})"), "");
}

} // namespace
} // namespace fv2::test
