// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

// For the lines "key=value" of settings and of the system's own files.

//! The value of a shell-like assignment: one pair of quotes taken off, a backslash makes the next character plain.
[[nodiscard]] std::string unquotedValue(std::string_view value);

//! The text without the blanks, tabs and carriage returns at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace fv2
