// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "base/Utf8.h"
#include "logging/LogEscape.h"

#include <algorithm>
#include <cstdint>
#include <string>

//! Any text is logged as one line, safe for terminals, at most four times as long; escaping again changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace fv2;
    const std::string text(data, data + size);
    const std::string line = escapedForLog(text);
    test::require(line.size() >= text.size() && line.size() <= 4 * text.size());
    test::require(std::ranges::none_of(line, [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }));
    for (const char* steering : {"\xC2\x80", "\xC2\x85", "\xC2\x9B", "\xC2\x9F", "\u2028", "\u2029", "\u200F", "\u202E",
                                 "\u2066", "\u061C", "\uFEFF"})
        test::require(line.find(steering) == line.npos);
    test::require(escapedForLog(line) == line); // so it is whole UTF-8
    for (std::size_t middle = size / 2; middle < size; ++middle)
        if (beginsCharacter(text[middle])) {
            test::require(escapedForLog(text.substr(0, middle)) + escapedForLog(text.substr(middle)) == line);
            break;
        }
    return 0;
}
