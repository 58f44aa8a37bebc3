// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string_view>

namespace fv2 {

//! The text without those of the characters `blanks` that are at its ends. Any thread.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " \t\r") {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

} // namespace fv2
