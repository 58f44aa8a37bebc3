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
    fv2Window postpones = fv2Window::None;
};

// clang-format off
inline constexpr std::array<FV2AlertRow, 7> kAlertTable{{
    {fv2Alert::BadComms,            "IDUS_ALERT_TITLE_COMMS",                   "IDUS_ALERT_ERROR_COMMS"},
    {fv2Alert::BadPassword,         "IDUS_ALERT_TITLE_PASSWORD_VALIDATION",     "IDUS_ALERT_ERROR_PASSWORD_VALIDATION"},
    {fv2Alert::FailPassword,        "IDUS_ALERT_TITLE_PASSWORD_FAILURE",        "IDUS_ALERT_ERROR_PASSWORD_FAILURE"},
    {fv2Alert::PostponeEncWarning,  "IDUS_ALERT_TITLE_PASSWORD_WARNING",        "IDUS_ALERT_WARNING_PASSWORD_POSTPONE_ENC", fv2Window::Password_Encrypt},
    {fv2Alert::PostponeDecWarning,  "IDUS_ALERT_TITLE_PASSWORD_WARNING",        "IDUS_ALERT_WARNING_PASSWORD_POSTPONE_DEC", fv2Window::Password_Decrypt},
    {fv2Alert::FailedProxySync,     "IDUS_ALERT_ERROR_PROXYSYNC_GENERIC_TITLE", "IDUS_ALERT_ERROR_PROXYSYNC_PROBLEM"},
    {fv2Alert::CannotCheckPassword, "IDUS_ALERT_TITLE_PASSWORD_UNCHECKED",      "IDUS_ALERT_ERROR_PASSWORD_UNCHECKED"},
}};
// clang-format on

//! The row of an alert; none for NoError.
[[nodiscard]] const FV2AlertRow* alertRow(fv2Alert alert);

//! A row in the user's language, without marks. An error code other than 0 ends the text as upper-case hexadecimal:
//! " (0xFF)".
[[nodiscard]] FV2AlertContent alertContent(const FV2AlertRow& row, std::uint64_t errorCode,
                                           const OxStringBundle& strings);

} // namespace fv2
