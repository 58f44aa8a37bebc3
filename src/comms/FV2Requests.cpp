// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2Requests.h"

namespace fv2 {

namespace {

//! The inside of a JSON string: quotes, backslashes and control characters escaped, all else as it is.
std::string jsonEscaped(std::string_view text) {
    constexpr std::string_view hexDigits = "0123456789abcdef";
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            out += "\\u00";
            out += hexDigits[byte >> 4U];
            out += hexDigits[byte & 0xFU];
        } else {
            out += c;
        }
    }
    return out;
}

std::string withUidAndToken(std::string_view command, std::int64_t uid, std::string_view token) {
    std::string text = "{\n    \"command\": \"";
    text.append(command).append("\",\n    \"uid\" : ").append(std::to_string(uid));
    text.append(",\n    \"token\": \"").append(jsonEscaped(token)).append("\"\n}");
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

std::string jsonSetPWCommand::encoded() const {
    return R"({"command":")" + jsonEscaped(command) + R"(","uid":)" + std::to_string(uid) + R"(,"token":")" +
           jsonEscaped(token) + R"(","parameters":{"username":")" + jsonEscaped(parameters.username) +
           R"(","password":")" + jsonEscaped(parameters.password) + R"("}})";
}

} // namespace fv2
