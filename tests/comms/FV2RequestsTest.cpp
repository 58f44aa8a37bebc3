// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2Requests.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace fv2::test {
namespace {

TEST(Requests, AreThePeersTextsByteForByte) {
    const std::vector<std::pair<std::string, std::string>> table{
        {showUiRequest(), "{ \"command\": \"show_ui\" }"},
        {getStatusRequest(501), "{ \"command\": \"get_status\" , \"uid\" : 501 }"},
        {getTokenRequest(501), "{ \"command\": \"get_token\", \"uid\" : 501  }"},
        {getTokenRequest(4294967295), "{ \"command\": \"get_token\", \"uid\" : 4294967295  }"},
        {proxySyncRequest(0, "a1-B2"),
         "{\n    \"command\": \"proxy_sync\",\n    \"uid\" : 0,\n    \"token\": \"a1-B2\"\n}"},
        {unsubscribeRequest(501, ""),
         "{\n    \"command\": \"unsubscribe\",\n    \"uid\" : 501,\n    \"token\": \"\"\n}"},
        {notificationReply(true), "\"{ \"result\": 0 }\""},
        {notificationReply(false), "\"{ \"result\": 1 }\""},
        {jsonSetPWCommand{.uid = 501, .token = "t", .parameters = {"ann", "pw"}}.encoded(),
         R"({"command":"set_user_credentials","uid":501,"token":"t","parameters":{"username":"ann","password":"pw"}})"}};
    for (const auto& [text, expected] : table)
        EXPECT_EQ(text, expected);
}

TEST(Requests, CarryAnyTextThroughJson) {
    std::string every;
    for (char c = 0; c < 0x7F; ++c)
        every += c;
    for (const std::string& text : {every, std::string(R"("},"uid":0,{")"), std::string("\\\\\"\\u0041"),
                                    std::string("p\u00E4ss\u20AC\U0001F512\u2028\x7F")}) {
        const auto command = nlohmann::json::parse(
            jsonSetPWCommand{.uid = 501, .token = text, .parameters = {text + "u", text + "p"}}.encoded());
        EXPECT_EQ(command.at("uid"), 501);
        EXPECT_EQ(command.at("token"), text);
        EXPECT_EQ(command.at("parameters").at("username"), text + "u");
        EXPECT_EQ(command.at("parameters").at("password"), text + "p");
        EXPECT_EQ(nlohmann::json::parse(proxySyncRequest(501, text)).at("token"), text);
        EXPECT_EQ(nlohmann::json::parse(unsubscribeRequest(501, text)).at("token"), text);
    }
}

} // namespace
} // namespace fv2::test
