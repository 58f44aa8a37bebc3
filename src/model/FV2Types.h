// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2Records.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace fv2 {

//! The traffic light, ordered from best to worst.
enum class fv2StatusStateType { Green, Yellow, Red };

//! Who caused a refresh; it decides whether an action may be carried out.
enum class fv2SyncSource {
    None,    //!< a local repaint only
    Startup, //!< the first refresh after launch
    Service, //!< the service pushed a notification
    Moved,   //!< the user moved around the interface
    User,    //!< the user asked for a synchronisation
};

//! The action that a status calls for or that a command link carries.
enum class fv2AppCommand {
    NoAction,
    RetryComms,
    EnterEncPassword,
    EnterDecPassword,
    GetStatus,
    ProxySync_ORM,
    Initialising_ORM,
};

enum class fv2Alert {
    NoError,
    BadComms,
    BadPassword,
    FailPassword,
    PostponeEncWarning,
    PostponeDecWarning,
    FailedProxySync,
    CannotCheckPassword,
};

enum class fv2Window : std::uint8_t { None, Main, Password_Encrypt, Password_Decrypt };

//! The case's name as it is written here, for log lines.
[[nodiscard]] std::string_view caseName(fv2SyncSource value);
[[nodiscard]] std::string_view caseName(fv2AppCommand value);

//! What became of a command: whether the service accepted it, its error code, and the alert to show when it did not.
struct CommandResult {
    bool ok = false;
    std::uint64_t errorCode = 0;
    fv2Alert alert = fv2Alert::BadComms;

    friend bool operator==(const CommandResult&, const CommandResult&) = default;
};

//! Reads any answer of the service: one that can't be decoded is (false, 0, BadComms); a refusal has `failureAlert`.
//! A negative error code keeps its bits.
[[nodiscard]] CommandResult genericResult(std::string_view answer, fv2Alert failureAlert);
//! The same for one that has been read; none stands for one that can't be decoded.
[[nodiscard]] CommandResult genericResult(const std::optional<FV2AISResponse>& response, fv2Alert failureAlert);

} // namespace fv2
