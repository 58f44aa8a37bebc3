// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2Requests.h"

namespace fv2 {

namespace {

//! The longest form of one byte inside a JSON string.
constexpr std::size_t kLongestEscape = 6;

//! Appends the inside of a JSON string: quotes, backslashes and control characters escaped, all else as it is.
template <class Text>
void appendEscaped(Text& out, std::string_view text) {
    constexpr std::string_view hexDigits = "0123456789abcdef";
    for (const char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out.append("\\");
            out.append({&c, 1});
        } else if (byte < 0x20) {
            out.append("\\u00");
            out.append(hexDigits.substr(byte >> 4U, 1));
            out.append(hexDigits.substr(byte & 0xFU, 1));
        } else {
            out.append({&c, 1});
        }
    }
}

std::string withUidAndToken(std::string_view command, std::int64_t uid, std::string_view token) {
    std::string text = "{\n    \"command\": \"";
    text.append(command).append("\",\n    \"uid\" : ").append(std::to_string(uid));
    text.append(",\n    \"token\": \"");
    appendEscaped(text, token);
    text.append("\"\n}");
    return text;
}

} // namespace

std::string showUiRequest() {
    return R"({ "command": "show_ui" })";
}

std::string getStatusRequest(std::int64_t uid) {
    return R"({ "command": "get_status" , "uid" : )" + std::to_string(uid) + " }";
}

std::string getTokenRequest(std::int64_t uid) {
    return R"({ "command": "get_token", "uid" : )" + std::to_string(uid) + "  }";
}

std::string proxySyncRequest(std::int64_t uid, std::string_view token) {
    return withUidAndToken("proxy_sync", uid, token);
}

std::string unsubscribeRequest(std::int64_t uid, std::string_view token) {
    return withUidAndToken("unsubscribe", uid, token);
}

std::string notificationReply(bool understood) {
    return understood ? R"("{ "result": 0 }")" : R"("{ "result": 1 }")";
}

SecretText jsonSetPWCommand::encoded() const {
    const std::string number = std::to_string(uid);
    constexpr std::size_t keys = 100;
    const std::size_t texts = command.size() + token.size() + parameters.username.size() + parameters.password.size();
    SecretText text(keys + number.size() + kLongestEscape * texts);
    text.append(R"({"command":")");
    appendEscaped(text, command);
    text.append(R"(","uid":)");
    text.append(number);
    text.append(R"(,"token":")");
    appendEscaped(text, token);
    text.append(R"(","parameters":{"username":")");
    appendEscaped(text, parameters.username);
    text.append(R"(","password":")");
    appendEscaped(text, parameters.password);
    text.append(R"("}})");
    return text;
}

} // namespace fv2
