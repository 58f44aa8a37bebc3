// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2JsonParserORM.h"

#include <string>
#include <string_view>

namespace fv2 {

//! Asks the service for its status, and for no token: that would make a running copy's invalid. Two attempts of 4 s;
//! empty when nobody answers.
[[nodiscard]] std::string askedStatus();

//! A status reply as the agent understands it.
struct InterpretedStatus {
    FV2AppState state;
    std::int64_t number; //!< of the service's state; kNoValidAnswer without a valid reply
};

//! An empty reply is that of a service that can't be reached. Dates and texts are made as the arguments make them.
[[nodiscard]] InterpretedStatus interpretedStatus(std::string_view reply, const OxStringBundle& strings,
                                                  MediumDateFormat date);

//! What stands in the place of a text that the service has not told; no text of a service has a line feed.
inline constexpr std::string_view kNotTold = "\n";

//! For programs that read: every text is its identifier without "IDUS_", an unknown value is kNotTold.
[[nodiscard]] const OxStringBundle& identifierTexts();

//! "green", "yellow" or "red".
[[nodiscard]] std::string_view nameOf(fv2StatusStateType light);

//! 0 green, 1 yellow, 2 red, 3 without a valid reply.
[[nodiscard]] int exitStatusOf(std::string_view reply);

//! "2026-11-24T05:00:00Z"; empty for a year that has not four digits.
[[nodiscard]] std::string isoTime(std::int64_t secondsSince1970);

} // namespace fv2
