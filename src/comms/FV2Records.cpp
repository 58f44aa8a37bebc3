// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2Records.h"

#include "base/Utf8.h"
#include "comms/JsonExtent.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace fv2 {

namespace {

using nlohmann::json;

constexpr long kMaxNesting = 64;

std::optional<json> parsedObject(std::string_view text) {
    JsonExtent extent;
    extent.take(text);
    // The parser takes a zero byte for the end of the text.
    if (extent.deepest() > kMaxNesting || text.find('\0') != std::string_view::npos)
        return std::nullopt;
    json value = json::parse(text, nullptr, false);
    if (!value.is_object())
        return std::nullopt;
    return value;
}

bool convert(const json& value, bool& out) {
    if (!value.is_boolean())
        return false;
    out = value.get<bool>();
    return true;
}

bool convert(const json& value, std::int64_t& out) {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!value.is_number_integer() || (value.is_number_unsigned() && value.get<std::uint64_t>() > largest))
        return false;
    out = value.get<std::int64_t>();
    return true;
}

bool convert(const json& value, std::string& out) {
    if (!value.is_string())
        return false;
    out = value.get<std::string>();
    return true;
}

bool convert(const json& value, FV2EISStatus& out);
bool convert(const json& value, FV2EISPolicy& out);

//! False only for a value of the wrong type.
template <class Member>
bool read(const json& object, const char* key, std::optional<Member>& member) {
    const auto found = object.find(key);
    if (found == object.end() || found->is_null())
        return true;
    return convert(*found, member.emplace());
}

//! A text that people will read.
bool readReadable(const json& object, const char* key, std::optional<std::string>& member) {
    if (!read(object, key, member))
        return false;
    if (member)
        member = readableText(*member);
    return true;
}

bool convert(const json& value, FV2EISStatus& out) {
    return value.is_object() && read(value, "state", out.state) && read(value, "progress", out.progress) &&
           readReadable(value, "uuid", out.uuid) && readReadable(value, "version", out.version) &&
           read(value, "sync_active", out.sync_active) && read(value, "sync_ok", out.sync_ok) &&
           read(value, "sync_last", out.sync_last);
}

bool convert(const json& value, FV2EISPolicy& out) {
    return value.is_object() && read(value, "postponecredentialmins", out.postponecredentialmins);
}

std::optional<FV2EISResponse> statusIn(const std::optional<json>& object) {
    FV2EISResponse record;
    if (!object || !read(*object, "error_code", record.error_code) || !read(*object, "status", record.status) ||
        !read(*object, "policy", record.policy))
        return std::nullopt;
    return record;
}

std::optional<FV2AISResponse> genericIn(const std::optional<json>& object) {
    FV2AISResponse record;
    if (!object || !read(*object, "result", record.result) || !read(*object, "success", record.success) ||
        !read(*object, "error_code", record.error_code))
        return std::nullopt;
    return record;
}

} // namespace

std::optional<FV2EISResponse> FV2EISResponse::decode(std::string_view text) {
    return statusIn(parsedObject(text));
}

std::optional<FV2AISCommand> FV2AISCommand::decode(std::string_view text) {
    const std::optional<json> object = parsedObject(text);
    FV2AISCommand record;
    if (!object || !read(*object, "command", record.command))
        return std::nullopt;
    return record;
}

std::optional<FV2AISResponse> FV2AISResponse::decode(std::string_view text) {
    return genericIn(parsedObject(text));
}

FV2StatusReply FV2StatusReply::decode(std::string_view text) {
    const std::optional<json> object = parsedObject(text);
    return {genericIn(object), statusIn(object)};
}

std::optional<FV2CommsToken> FV2CommsToken::decode(std::string_view text) {
    const std::optional<json> object = parsedObject(text);
    FV2CommsToken record;
    if (!object || !read(*object, "token", record.token) || !read(*object, "success", record.success) ||
        !read(*object, "error_code", record.error_code))
        return std::nullopt;
    return record;
}

std::string FV2CommsToken::tokenOf(std::string_view text) {
    const std::optional<FV2CommsToken> answer = decode(text);
    const bool reportsNoError = answer && answer->error_code.value_or(0) == 0 && answer->success.value_or(true);
    return reportsNoError ? answer->token.value_or(std::string()) : std::string();
}

} // namespace fv2
