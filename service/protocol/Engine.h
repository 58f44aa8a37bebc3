// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace fv2::service {

//! What the service knows at this moment, as a status reply tells it.
struct EngineStatus {
    std::int64_t state = 1;
    std::int64_t progress = 0; //!< percent
    std::string uuid;
    std::string version;
    bool syncActive = false;
    bool syncOk = true;
    std::int64_t syncLast = 0;                   //!< seconds since 1970 UTC, 0 for never
    std::optional<std::int64_t> postponeMinutes; //!< none: the reply carries no policy

    bool operator==(const EngineStatus&) const = default;
};

struct EngineOutcome {
    bool accepted = true;
    std::int64_t errorCode = 0; //!< never 0 when refused

    bool operator==(const EngineOutcome&) const = default;
};

//! What the protocol asks of whatever does the encrypting. Called on the loop's thread; must not block.
class Engine {
public:
    virtual ~Engine() = default;
    virtual EngineStatus status() const = 0;

    //! Starts a synchronisation, or joins the one that runs.
    virtual EngineOutcome startSync() = 0;

    //! The texts live only for the call and are wiped after it: an engine keeps no copy of its own.
    virtual EngineOutcome takeCredentials(uid_t uid, std::string_view username, std::string_view password) = 0;
};

} // namespace fv2::service
