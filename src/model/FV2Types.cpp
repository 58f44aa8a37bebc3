// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2Types.h"

#include <array>

namespace fv2 {

namespace {

template <std::size_t Count, class Enum>
std::string_view nameAt(const std::array<std::string_view, Count>& names, Enum value) {
    return names.at(static_cast<std::size_t>(value));
}

} // namespace

std::string_view caseName(fv2SyncSource value) {
    constexpr std::array<std::string_view, 5> names{"None", "Startup", "Service", "Moved", "User"};
    return nameAt(names, value);
}

std::string_view caseName(fv2AppCommand value) {
    constexpr std::array<std::string_view, 7> names{
        "NoAction",  "RetryComms",    "EnterEncPassword", "EnterDecPassword",
        "GetStatus", "ProxySync_ORM", "Initialising_ORM",
    };
    return nameAt(names, value);
}

CommandResult genericResult(std::string_view answer, fv2Alert failureAlert) {
    return genericResult(FV2AISResponse::decode(answer), failureAlert);
}

CommandResult genericResult(const std::optional<FV2AISResponse>& response, fv2Alert failureAlert) {
    if (!response)
        return {false, 0, fv2Alert::BadComms};
    const bool ok = response->ok();
    return {ok, static_cast<std::uint64_t>(response->error_code.value_or(0)), ok ? fv2Alert::NoError : failureAlert};
}

} // namespace fv2
