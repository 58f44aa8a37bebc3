// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Request.h"

#include "comms/JsonExtent.h"

#include <nlohmann/json.hpp>

#include <array>
#include <limits>

namespace fv2::service {

namespace {

using Json = nlohmann::json;

const Json* member(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::optional<uid_t> decodeUid(const Json& object) {
    const Json* uid = member(object, "uid");
    // The highest number means "no user" to the system.
    if (uid == nullptr || !uid->is_number_unsigned() || uid->get<std::uint64_t>() >= std::numeric_limits<uid_t>::max())
        return std::nullopt;
    return uid->get<uid_t>();
}

std::optional<Credentials> decodeCredentials(Json& parameters) {
    const Json* username = member(parameters, "username");
    if (username == nullptr || !username->is_string() || !parameters.contains("password") ||
        !parameters["password"].is_string())
        return std::nullopt;
    auto& password = parameters["password"].get_ref<std::string&>();
    Credentials credentials{username->get<std::string>(), SecretBuffer(std::string_view(password))};
    ::explicit_bzero(password.data(), password.size());
    return credentials;
}

//! The parser keeps short texts in objects on its stack. Not inlined, so that its own frame lies where theirs lay.
[[gnu::noinline]] void wipeStackLeftBehind() {
    std::array<char, 16 * 1024> area;
    ::explicit_bzero(area.data(), area.size());
}

std::optional<Request> decoded(std::string_view text) {
    Json object = Json::parse(text, nullptr, false);
    if (!object.is_object())
        return std::nullopt;
    const Json* command = member(object, "command");
    const auto uid = decodeUid(object);
    if (command == nullptr || !command->is_string() || !uid)
        return std::nullopt;
    Request request{command->get<std::string>(), *uid, {}, {}};
    if (const Json* token = member(object, "token")) {
        if (!token->is_string())
            return std::nullopt;
        request.token = token->get<std::string>();
    }
    if (const auto parameters = object.find("parameters"); parameters != object.end() && parameters->is_object())
        request.credentials = decodeCredentials(*parameters);
    return request;
}

} // namespace

bool isWhole(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos)
        return false;
    JsonExtent extent;
    extent.take(text);
    return text[start] != '{' || extent.isClosed();
}

std::optional<Request> decodeRequest(std::string_view text) {
    std::optional<Request> request = decoded(text);
    wipeStackLeftBehind();
    return request;
}

} // namespace fv2::service
