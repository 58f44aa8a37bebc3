// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace fv2::service {

enum class FaultKind { None, Silent, Slow, Garbage, Half, Close, Endless, Error };

//! How the service misbehaves towards the connections that it accepts from now on.
struct ReplyFault {
    FaultKind kind = FaultKind::None;
    std::chrono::milliseconds delay{0}; //!< of Slow
    std::int64_t errorCode = 0;         //!< of Error

    bool operator==(const ReplyFault&) const = default;
};

//! As a user writes it: "none", "slow 2.5", "error 255".
[[nodiscard]] std::string faultText(const ReplyFault& fault);

} // namespace fv2::service
