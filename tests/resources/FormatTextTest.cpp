// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FormatText.h"

#include <gtest/gtest.h>

#include <vector>

namespace fv2::test {
namespace {

TEST(FormatText, PutsTheArgumentsInOnceAndLeavesEverythingElse) {
    struct Case {
        std::string_view text;
        std::string_view expected;
    };
    // %1 is a text that looks like marks itself, %2 is empty, there is no %3.
    const std::vector<Case> table{
        {"", ""},
        {"plain", "plain"},
        {"%1", "%2%1%"},
        {"[%1 %1]", "[%2%1% %2%1%]"},
        {"%2%1", "%2%1%"},
        {"%1%", "%2%1%%"},
        {"%%1", "%%2%1%"},
        {"%10", "%2%1%0"},
        {"%3 %9 %0 %a %L1 %-1 100% % 1 %", "%3 %9 %0 %a %L1 %-1 100% % 1 %"},
        {"\u00fc%1\u00fc", "\u00fc%2%1%\u00fc"},
    };
    for (const Case& each : table)
        EXPECT_EQ(formatText(each.text, {"%2%1%", ""}), each.expected) << each.text;
    EXPECT_EQ(formatText("%9%1", {"a", "b", "c", "d", "e", "f", "g", "h", "i"}), "ia");
    EXPECT_EQ(formatText("%1", {}), "%1");
}

} // namespace
} // namespace fv2::test
