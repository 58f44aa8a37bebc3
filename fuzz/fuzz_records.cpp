// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "comms/FV2Records.h"

#include <nlohmann/json.hpp>

#include <cstdint>

namespace fv2::test {
namespace {

using nlohmann::json;

//! A member is what the JSON library finds at the place.
template <class Member>
void same(const json& all, const std::string& place, const std::optional<Member>& member) {
    const json::json_pointer pointer(place);
    const json found = all.contains(pointer) ? all.at(pointer) : json();
    require(found.dump() == (member ? json(*member) : json()).dump());
}

//! Nothing is taken from a text without its end, and blanks around it make no difference.
template <class Record>
std::optional<Record> decoded(const std::string& text) {
    const auto record = Record::decode(text);
    require(record.has_value() == Record::decode(" \t" + text + "\r\n").has_value());
    require(!record || !(Record::decode(text.substr(0, text.rfind('}'))) || Record::decode("[" + text + "]")));
    return record;
}

void check(const std::string& text) {
    const json all = json::parse(text, nullptr, false);
    if (const auto answer = decoded<FV2EISResponse>(text)) {
        same(all, "/error_code", answer->error_code);
        const FV2EISStatus status = answer->status.value_or(FV2EISStatus());
        same(all, "/status/state", status.state);
        same(all, "/status/progress", status.progress);
        same(all, "/status/uuid", status.uuid);
        same(all, "/status/version", status.version);
        same(all, "/status/sync_active", status.sync_active);
        same(all, "/status/sync_ok", status.sync_ok);
        same(all, "/status/sync_last", status.sync_last);
        same(all, "/policy/postponecredentialmins", answer->policy.value_or(FV2EISPolicy()).postponecredentialmins);
    }
    if (const auto answer = decoded<FV2AISResponse>(text)) {
        same(all, "/result", answer->result);
        same(all, "/success", answer->success);
    }
    const auto answer = decoded<FV2CommsToken>(text);
    if (answer)
        same(all, "/token", answer->token);
    const std::string token = FV2CommsToken::tokenOf(text);
    require(token.empty() ||
            (answer->token == token && answer->success != false && answer->error_code.value_or(0) == 0));
}

} // namespace
} // namespace fv2::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fv2::test::check(std::string(data, data + size));
    return 0;
}
