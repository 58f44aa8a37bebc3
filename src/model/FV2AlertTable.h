// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "model/ports/FV2WindowRegistry.h"
#include "resources/OxTranslatedString.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace fv2 {

//! One alert; title and text are identifiers. One that asks has OK and Cancel, and OK confirms that the password is
//! typed later in the window of that kind; the others only report.
struct FV2AlertRow {
    fv2Alert alert;
    std::string_view title;
    std::string_view text;
    bool sendsToAdministrator = false; //!< the text tells its reader to turn to the administrator
    fv2Window postpones = fv2Window::None;
};

// clang-format off
inline constexpr std::array<FV2AlertRow, 7> kAlertTable{{
    {fv2Alert::BadComms,            "IDUS_ALERT_TITLE_COMMS",                   "IDUS_ALERT_ERROR_COMMS", true},
    {fv2Alert::BadPassword,         "IDUS_ALERT_TITLE_PASSWORD_VALIDATION",     "IDUS_ALERT_ERROR_PASSWORD_VALIDATION"},
    {fv2Alert::FailPassword,        "IDUS_ALERT_TITLE_PASSWORD_FAILURE",        "IDUS_ALERT_ERROR_PASSWORD_FAILURE", true},
    {fv2Alert::PostponeEncWarning,  "IDUS_ALERT_TITLE_PASSWORD_WARNING",        "IDUS_ALERT_WARNING_PASSWORD_POSTPONE_ENC", false, fv2Window::Password_Encrypt},
    {fv2Alert::PostponeDecWarning,  "IDUS_ALERT_TITLE_PASSWORD_WARNING",        "IDUS_ALERT_WARNING_PASSWORD_POSTPONE_DEC", false, fv2Window::Password_Decrypt},
    {fv2Alert::FailedProxySync,     "IDUS_ALERT_ERROR_PROXYSYNC_GENERIC_TITLE", "IDUS_ALERT_ERROR_PROXYSYNC_PROBLEM", true},
    {fv2Alert::CannotCheckPassword, "IDUS_ALERT_TITLE_PASSWORD_UNCHECKED",      "IDUS_ALERT_ERROR_PASSWORD_UNCHECKED", true},
}};
// clang-format on

//! The row of an alert; none for NoError.
[[nodiscard]] const FV2AlertRow* alertRow(fv2Alert alert);

//! What an alert says besides its row's texts, as plain text.
struct FV2AlertNotes {
    std::string support;      //!< whom to turn to
    std::string postponement; //!< when it is asked again what is postponed, as "in 60 minutes"; may be unknown
};

//! A row in the user's language, without marks. An error code other than 0 ends the text as upper-case hexadecimal:
//! " (0xFF)". Of the notes it takes the one that its text is about.
[[nodiscard]] FV2AlertContent alertContent(const FV2AlertRow& row, std::uint64_t errorCode,
                                           const OxStringBundle& strings, const FV2AlertNotes& notes = {});

} // namespace fv2
