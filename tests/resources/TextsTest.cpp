// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2HelpAddress.h"
#include "resources/FormatText.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

TEST(FormatText, PutsTheArgumentsInOnceAndLeavesEverythingElse) {
    // %1 is a text that looks like marks itself, %2 is empty, there is no %3.
    for (const auto& [text, expected] : {std::pair{"[%2%1 %1%] %10", "[%2%1% %2%1%%] %2%1%0"},
                                         {"\u00fc%1\u00fc", "\u00fc%2%1%\u00fc"},
                                         {"%3 %9 %0 %a %L1 %-1 100% % 1 %", "%3 %9 %0 %a %L1 %-1 100% % 1 %"},
                                         {"", ""}})
        EXPECT_EQ(formatText(text, {"%2%1%", ""}), expected);
    EXPECT_EQ(formatText("%9%1", {"a", "b", "c", "d", "e", "f", "g", "h", "i"}), "ia");
}

TEST(HelpAddress, IsAWebPageOnAHostInTheUsersLanguageOrNothing) {
    const std::pair<const char*, const char*> languages[] = {
        {"en", "1033"},      {"de", "1031"},      {"es", "3082"}, {"es-419", "13322"},
        {"es_419", "13322"}, {"zh-Hant", "1028"}, {"", "1033"}};
    for (const auto& [localization, code] : languages)
        EXPECT_EQ(helpAddress("h.example.org", localization),
                  std::string("http://h.example.org/getHelp?product=orm_client&version=5&lang=") + code +
                      "&topic=index");
    for (const char* const host : {"localhost:8080", "192.0.2.7", "A-1.example"})
        EXPECT_EQ(helpAddress(host, "en").find(std::string("http://") + host + "/getHelp?"), 0U) << host;
    for (const char* const host :
         {"", "a b", "a/b", "user@a", "a:", "a:b", ":80", "a:1:2", "-a", "a?b", "[::1]", "ä", "a:123456"})
        EXPECT_EQ(helpAddress(host, "en"), "") << host;
}

} // namespace
} // namespace fv2::test
