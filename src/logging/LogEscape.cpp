// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/LogEscape.h"

#include "base/Utf8.h"

#include <array>
#include <cstdio>

namespace fv2 {

namespace {

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
        if (point.length != 0 && !isNeverShown(point.value))
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
