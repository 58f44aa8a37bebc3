// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/LogEscape.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace fv2 {

namespace {

struct CodePoint {
    std::uint32_t value;
    std::size_t length; //!< bytes; 0 when the text does not begin with whole UTF-8
};

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

struct Range {
    std::uint32_t first, last;
};

//! Controls, separators of lines, what turns the direction of a text or can't be seen at all.
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

bool isHarmless(std::uint32_t value) {
    if (value >= 0x20 && value < 0x7F)
        return true; // nearly all
    return std::ranges::none_of(kNeverShown,
                                [value](const Range& range) { return range.first <= value && value <= range.last; });
}

void appendHex(std::string& out, std::string_view mark, unsigned value, int digits) {
    std::array<char, 12> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, value);
    out.append(mark).append(text.data());
}

} // namespace

std::string escapedForLog(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const CodePoint point = firstCodePoint(text);
        const std::size_t taken = point.length == 0 ? 1 : point.length;
        if (point.length != 0 && isHarmless(point.value))
            out += text.substr(0, taken);
        else if (text.front() == '\n')
            out += "\\n";
        else if (text.front() == '\t')
            out += "\\t";
        else if (point.value >= 0x80)
            appendHex(out, "\\u", point.value, 4);
        else
            appendHex(out, "\\x", static_cast<unsigned char>(text.front()), 2);
        text.remove_prefix(taken);
    }
    return out;
}

} // namespace fv2
