// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/Utf8.h"

#include <algorithm>
#include <array>

namespace fv2 {

namespace {

struct Range {
    std::uint32_t first, last;
};

constexpr std::array<Range, 11> kNeverShown{{{0x00, 0x1F},
                                             {0x7F, 0x9F},
                                             {0xAD, 0xAD},
                                             {0x61C, 0x61C},
                                             {0x180E, 0x180E},
                                             {0x200B, 0x200F},
                                             {0x2028, 0x202E},
                                             {0x2060, 0x206F},
                                             {0xFEFF, 0xFEFF},
                                             {0xFFF9, 0xFFFB},
                                             {0xE0000, 0xE007F}}};

constexpr std::uint32_t kReplacementCharacter = 0xFFFD;

} // namespace

CodePoint firstCodePoint(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return {0, 0};
    std::uint32_t value = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return {0, 0};
        value = (value << 6U) | (byte(i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    return value < smallest[length] || surrogate || value > 0x10FFFF ? CodePoint{0, 0} : CodePoint{value, length};
}

bool isNeverShown(std::uint32_t codePoint) {
    if (codePoint >= 0x20 && codePoint < 0x7F)
        return false; // nearly all
    return std::ranges::any_of(
        kNeverShown, [codePoint](const Range& range) { return range.first <= codePoint && codePoint <= range.last; });
}

std::string readableText(std::string_view text) {
    std::string readable;
    for (std::size_t characters = 0; !text.empty() && characters < kMostReadableCharacters;) {
        const CodePoint point = firstCodePoint(text);
        if (point.length != 0 && !isNeverShown(point.value) && point.value != kReplacementCharacter) {
            readable += text.substr(0, point.length);
            ++characters;
        }
        text.remove_prefix(point.length == 0 ? 1 : point.length);
    }
    return readable;
}

} // namespace fv2
