// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace fv2 {

//! Stands in for the service's state when there is no valid answer.
inline constexpr std::int64_t kNoValidAnswer = -1;
//! All is done; a state without a message.
inline constexpr std::int64_t kEncryptedState = 6;

//! One message that a service state shows. Title and text are identifiers; the text of a row with a percentage has one
//! place for it.
struct FV2_ORM_State {
    std::int64_t state;
    fv2AppCommand command;
    std::string_view title;
    std::string_view text;
    fv2StatusStateType statusType;
    bool hasPercentage;
    bool sendsToAdministrator = false; //!< the text tells its reader to turn to the administrator
};

// clang-format off
//! The rows of every state, in the order in which they are shown. A state without a row (6, 10, and any not listed) shows
//! nothing.
inline constexpr std::array<FV2_ORM_State, 13> kOrmStatesDictionary{{
    {-1, fv2AppCommand::RetryComms,       "IDUS_ALERT_TITLE_COMMS",    "IDUS_ALERT_ERROR_COMMS",         fv2StatusStateType::Red,    false, true},
    { 0, fv2AppCommand::NoAction,         "IDUS_ORM_SM_BADCONFIG",     "IDUS_ORM_SM_BADFCONFIG",         fv2StatusStateType::Red,    false, true},
    { 1, fv2AppCommand::NoAction,         "IDUS_ORM_SM_NOT_ENCD",      "IDUS_ORM_SM_NOT_ENCD_DESC",      fv2StatusStateType::Yellow, false},
    { 2, fv2AppCommand::NoAction,         "IDUS_ORM_SM_NOT_ENCD",      "IDUS_ORM_SM_NOT_ENCD_DESC",      fv2StatusStateType::Yellow, false},
    { 3, fv2AppCommand::EnterEncPassword, "IDUS_ORM_SM_WANT_ENC",      "IDUS_ORM_SM_WANT_ENC_DESC",      fv2StatusStateType::Red,    false},
    { 3, fv2AppCommand::NoAction,         "IDUS_ORM_SM_NOT_ENCD",      "IDUS_ORM_SM_NOT_ENCD_DESC",      fv2StatusStateType::Yellow, false},
    { 4, fv2AppCommand::Initialising_ORM, "IDUS_ORM_SM_INIT",          "IDUS_ORM_SM_STARTING_ENC",       fv2StatusStateType::Yellow, true },
    { 5, fv2AppCommand::NoAction,         "IDUS_ORM_SM_ENCING",        "IDUS_ORM_SM_ENCING_DESC",        fv2StatusStateType::Yellow, true },
    { 7, fv2AppCommand::EnterDecPassword, "IDUS_ORM_SM_WANT_DEC",      "IDUS_ORM_SM_WANT_DEC_DESC",      fv2StatusStateType::Yellow, false},
    { 8, fv2AppCommand::Initialising_ORM, "IDUS_ORM_SM_INIT",          "IDUS_ORM_SM_STARTING_DEC",       fv2StatusStateType::Yellow, true },
    { 9, fv2AppCommand::NoAction,         "IDUS_ORM_SM_DECING",        "IDUS_ORM_SM_DECING_DESC",        fv2StatusStateType::Yellow, true },
    {12, fv2AppCommand::NoAction,         "IDUS_ORM_SM_OTHER_MANAGED", "IDUS_ORM_SM_OTHER_MANAGED_DESC", fv2StatusStateType::Red,    false, true},
    {13, fv2AppCommand::NoAction,         "IDUS_ORM_SM_OTHER_MANAGED", "IDUS_ORM_SM_OTHER_MANAGED_DESC", fv2StatusStateType::Red,    false, true},
}};
// clang-format on

} // namespace fv2
