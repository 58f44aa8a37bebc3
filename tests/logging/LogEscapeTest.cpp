// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/LogEscape.h"

#include <gtest/gtest.h>

#include <vector>

namespace fv2::test {
namespace {

using namespace std::string_view_literals;

TEST(EscapedForLog, ShowsWhatCouldBreakALineOrSteerATerminal) {
    const std::vector<std::pair<std::string_view, std::string_view>> table{
        {R"(plain \ "text" ~)", R"(plain \ "text" ~)"},
        {"caf\u00E9 \u20AC \U0001F512 \U0010FFFF", "caf\u00E9 \u20AC \U0001F512 \U0010FFFF"},
        {"a\nb\tc\rd", R"(a\nb\tc\x0dd)"},
        {"\0x\x1B[2J\x7F"sv, R"(\x00x\x1b[2J\x7f)"},
        {"\xC2\x85\xC2\x9B 31m\u00A0", "\\u0085\\u009b 31m\u00A0"},
        {"\u2027\u2028\u2029\u2030", "\u2027\\u2028\\u2029\u2030"},
        {"\x80\xFF\xC3", R"(\x80\xff\xc3)"},
        {"\xC0\x8A \xC1\xBF \xE0\x80\x8A \xF0\x80\x80\x8A", R"(\xc0\x8a \xc1\xbf \xe0\x80\x8a \xf0\x80\x80\x8a)"},
        {"\xED\xA0\x80 \xED\xBF\xBF \xEE\x80\x80", "\\xed\\xa0\\x80 \\xed\\xbf\\xbf \uE000"},
        {"\xF4\x90\x80\x80 \xF5\x80\x80\x80", R"(\xf4\x90\x80\x80 \xf5\x80\x80\x80)"},
        {"\xE2\x80\n\xE2\x82", R"(\xe2\x80\n\xe2\x82)"}};
    for (const auto& [text, escaped] : table)
        EXPECT_EQ(escapedForLog(text), escaped);
}

} // namespace
} // namespace fv2::test
