// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace fv2 {

//! The short name of the account that this process runs for, whatever the environment says; empty when it has none.
[[nodiscard]] std::string accountName();

//! Date and time in ICU's medium style, in the user's locale for times (LC_ALL, LC_TIME, LANG) and time zone. UTF-8;
//! the time may hold U+202F. Empty when there is no such date.
[[nodiscard]] std::string mediumDate(std::int64_t secondsSince1970);

//! How far off a time is, in the words of a language (a BCP 47 tag): "in 60 minutes", from two hours on in hours, from
//! two days on in days, to a tenth. Empty for what ICU can't say.
[[nodiscard]] std::string timeFromNow(std::int64_t minutes, const std::string& language);

} // namespace fv2
