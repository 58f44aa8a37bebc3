// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! The value of a shell-like assignment, as the system's own files have them: one pair of quotes taken off, a backslash
//! makes the next character plain.
[[nodiscard]] std::string unquotedValue(std::string_view value);

} // namespace fv2
