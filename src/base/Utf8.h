// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace fv2 {

//! Whether a byte begins a character (a code point) of UTF-8: every byte does that is not of the form 10xxxxxx, even in
//! invalid UTF-8. Any thread.
[[nodiscard]] inline bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

//! How many characters begin in the text.
[[nodiscard]] inline std::size_t charactersIn(std::string_view text) {
    // A counter as small as what it counts lets the processor look at many bytes at once.
    constexpr std::size_t kPiece = 128;
    static_assert(kPiece <= std::numeric_limits<std::uint8_t>::max());
    std::size_t all = 0;
    for (std::size_t begin = 0; begin < text.size(); begin += kPiece) {
        std::uint8_t some = 0;
        for (const char byte : text.substr(begin, kPiece))
            some = static_cast<std::uint8_t>(some + (beginsCharacter(byte) ? 1 : 0));
        all += some;
    }
    return all;
}

struct CodePoint {
    std::uint32_t value;
    std::size_t length; //!< bytes; 0 when the text does not begin with whole UTF-8
};

//! Of a text that is not empty.
[[nodiscard]] CodePoint firstCodePoint(std::string_view text);

//! Controls, line separators, direction marks and invisible characters.
[[nodiscard]] bool isNeverShown(std::uint32_t codePoint);

inline constexpr std::size_t kMostReadableCharacters = 200;

//! A stranger's name or version as people may read it: its first characters, valid UTF-8 on one line, without those
//! that are never shown.
[[nodiscard]] std::string readableText(std::string_view text);

} // namespace fv2
