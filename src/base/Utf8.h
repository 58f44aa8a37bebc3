// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace fv2 {

//! Whether a byte begins a character (a code point) of UTF-8: each does that is not of the form 10xxxxxx, also in a
//! text that is no UTF-8. Any thread.
[[nodiscard]] inline bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

//! How many characters begin in the text.
[[nodiscard]] inline std::size_t charactersIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, beginsCharacter));
}

} // namespace fv2
