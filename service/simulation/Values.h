// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Engine.h"
#include "protocol/ReplyFault.h"

#include <chrono>

namespace fv2::service {

enum class SyncEnd { Ok, Fail, Refuse };

//! What a request to synchronise leads to.
struct SyncPlan {
    SyncEnd end = SyncEnd::Ok;
    std::chrono::milliseconds duration{2'000}; //!< of one that runs
    std::int64_t errorCode = 1;                //!< of one that is refused

    bool operator==(const SyncPlan&) const = default;
};

//! Everything that a scenario or an operator can set.
struct Values {
    EngineStatus status{.uuid = "6f1d2c58-90ab-4e37-b1c4-5d0e7a8f9b26", .version = "1.0.0", .postponeMinutes = 60};
    EngineOutcome credentials; //!< what the next ones meet
    SyncPlan onSync;
    ReplyFault fault;
};

} // namespace fv2::service
