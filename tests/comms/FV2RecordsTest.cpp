// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2Records.h"

#include <gtest/gtest.h>

#include <limits>

namespace fv2::test {
namespace {

std::string nested(int levels) {
    const auto inner = static_cast<std::size_t>(levels - 1);
    return R"({"x":)" + std::string(inner, '[') + std::string(inner, ']') + "}";
}

TEST(Records, RefuseWhatIsNoWholeJsonObject) {
    const std::string bracketsInText = R"({"x":")" + std::string(100, '[') + R"(\"{{"})";
    const std::vector<std::string> whole{"{}", " \t\r\n{ } \n", R"({"unknown":[1.5,{"a":null}],"error_code":1})",
                                         bracketsInText, nested(64)};
    const std::vector<std::string> broken{nested(65),
                                          std::string(1'000'000, '['),
                                          "",
                                          "[]",
                                          "null",
                                          "1",
                                          R"("{ "result": 0 }")",
                                          "{",
                                          "{}}",
                                          "{}{}",
                                          "{} x",
                                          std::string("{}\0", 3),
                                          R"({"x":1,})",
                                          R"({x:1})",
                                          "{/**/}",
                                          R"({"x":NaN})",
                                          "{\"x\":\"a\nb\"}",
                                          "{\"x\":\"\xC3\"}",
                                          "{\"x\":\"\xED\xA0\x80\"}",
                                          "{\"x\":\"\xC0\xAF\"}",
                                          R"({"x":"\ud800"})"};
    for (const auto* texts : {&whole, &broken})
        for (const std::string& text : *texts) {
            EXPECT_EQ(FV2EISResponse::decode(text).has_value(), texts == &whole) << text.substr(0, 80);
            EXPECT_EQ(FV2AISResponse::decode(text).has_value(), texts == &whole) << text.substr(0, 80);
            EXPECT_EQ(FV2CommsToken::decode(text).has_value(), texts == &whole) << text.substr(0, 80);
            EXPECT_EQ(FV2AISCommand::decode(text).has_value(), texts == &whole) << text.substr(0, 80);
        }
}

TEST(Records, ReadEveryKeyIntoItsMember) {
    const auto response = FV2EISResponse::decode(R"({"error_code":-3,"policy":{"postponecredentialmins":240},"status":{
        "state":1,"progress":2,"uuid":"U","version":"V","sync_active":3,"sync_ok":4,"sync_last":5}})");
    ASSERT_TRUE(response && response->status && response->policy);
    EXPECT_EQ(response->error_code, -3);
    EXPECT_EQ(response->policy->postponecredentialmins, 240);
    const FV2EISStatus& status = *response->status;
    EXPECT_EQ(status.state, 1);
    EXPECT_EQ(status.progress, 2);
    EXPECT_EQ(status.uuid, "U");
    EXPECT_EQ(status.version, "V");
    EXPECT_EQ(status.sync_active, 3);
    EXPECT_EQ(status.sync_ok, 4);
    EXPECT_EQ(status.sync_last, 5);

    const auto twice = FV2EISResponse::decode(R"({"error_code":1,"error_code":2})");
    ASSERT_TRUE(twice);
    EXPECT_EQ(twice->error_code, 2) << "of a repeated key the last one counts";
    EXPECT_FALSE(twice->status || twice->policy) << "a missing object is empty";
}

TEST(Records, TakeNullForMissingAndRefuseEveryOtherType) {
    //! The wire text with % for the value, and the one type that the value may have.
    using Keys = std::vector<std::pair<std::string, std::string>>;
    const Keys status{{R"({"error_code":%})", "integer"},
                      {R"({"status":%})", "object"},
                      {R"({"policy":%})", "object"},
                      {R"({"status":{"state":%}})", "integer"},
                      {R"({"status":{"progress":%}})", "integer"},
                      {R"({"status":{"uuid":%}})", "string"},
                      {R"({"status":{"version":%}})", "string"},
                      {R"({"status":{"sync_active":%}})", "integer"},
                      {R"({"status":{"sync_ok":%}})", "integer"},
                      {R"({"status":{"sync_last":%}})", "integer"},
                      {R"({"policy":{"postponecredentialmins":%}})", "integer"}};
    const Keys answer{
        {R"({"result":%})", "boolean"}, {R"({"success":%})", "boolean"}, {R"({"error_code":%})", "integer"}};
    const Keys token{{R"({"token":%})", "string"}, {R"({"success":%})", "boolean"}, {R"({"error_code":%})", "integer"}};
    const Keys command{{R"({"command":%})", "string"}};
    const std::vector<std::pair<std::string, std::vector<std::string>>> valuesOf{
        {"any", {"null"}},
        {"boolean", {"true", "false"}},
        {"integer", {"0", "-1", "9223372036854775807", "-9223372036854775808"}},
        {"none", {"9223372036854775808", "18446744073709551616", "-9223372036854775809", "1.0", "1e2", "[]"}},
        {"string", {"\"1\""}},
        {"object", {"{}"}}};
    const auto check = [&valuesOf](const Keys& keys, auto decode) {
        for (const auto& [text, allowed] : keys)
            for (const auto& [type, values] : valuesOf)
                for (const std::string& value : values) {
                    const std::string full = std::string(text).replace(text.find('%'), 1, value);
                    EXPECT_EQ(decode(full).has_value(), type == "any" || type == allowed) << full;
                }
    };
    check(status, FV2EISResponse::decode);
    check(answer, FV2AISResponse::decode);
    check(token, FV2CommsToken::decode);
    check(command, FV2AISCommand::decode);

    EXPECT_EQ(FV2EISResponse::decode(R"({"error_code":9223372036854775807})")->error_code,
              std::numeric_limits<std::int64_t>::max());
    EXPECT_FALSE(FV2EISResponse::decode(R"({"status":{"uuid":null}})")->status->uuid);
    EXPECT_FALSE(FV2EISResponse::decode(R"({"status":null})")->status);
}

TEST(Records, JudgeAnAnswerByItsResultThenItsSuccess) {
    const std::vector<std::pair<std::string_view, bool>> table{{"{}", false},
                                                               {R"({"error_code":0})", false},
                                                               {R"({"success":true})", true},
                                                               {R"({"success":false})", false},
                                                               {R"({"result":true})", true},
                                                               {R"({"result":false,"success":true})", false},
                                                               {R"({"result":true,"success":false})", true},
                                                               {R"({"result":null,"success":true})", true}};
    for (const auto& [text, ok] : table)
        EXPECT_EQ(FV2AISResponse::decode(text)->ok(), ok) << text;
}

TEST(Records, GiveATokenOnlyWithoutAnError) {
    const std::vector<std::pair<std::string_view, std::string_view>> table{
        {R"({"token":"t","success":true,"error_code":0})", "t"},
        {R"({"token":"t"})", "t"},
        {R"({"token":"t","success":false})", ""},
        {R"({"token":"t","success":true,"error_code":1})", ""},
        {R"({"token":"t","error_code":-1})", ""},
        {R"({"success":true,"error_code":0})", ""},
        {R"({"token":7})", ""},
        {"", ""}};
    for (const auto& [text, token] : table)
        EXPECT_EQ(FV2CommsToken::tokenOf(text), token) << text;
}

TEST(Records, TellWhatAMessageAsksFor) {
    const std::vector<std::pair<std::string_view, fv2JsonCommand>> table{
        {R"({ "command": "show_ui" })", fv2JsonCommand::Show},
        {R"({"command":"SHOW_UI"})", fv2JsonCommand::GetStatus},
        {R"({"command":"get_status"})", fv2JsonCommand::GetStatus},
        {R"({"command":"anything"})", fv2JsonCommand::GetStatus},
        {R"({"command":null})", fv2JsonCommand::GetStatus},
        {"{}", fv2JsonCommand::GetStatus},
        {R"({"command":1})", fv2JsonCommand::None},
        {"show_ui", fv2JsonCommand::None},
        {"", fv2JsonCommand::None}};
    for (const auto& [text, kind] : table)
        EXPECT_EQ(commandKind(text), kind) << text;
}

} // namespace
} // namespace fv2::test
