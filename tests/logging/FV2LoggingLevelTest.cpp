// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/FV2LoggingLevel.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

using Level = FV2LoggingLevel;

TEST(FV2LoggingLevel, NamesItsFourMembersAndNothingElse) {
    EXPECT_EQ(Level::trace.text(), "trace");
    EXPECT_EQ(Level::ui.text(), "ui");
    EXPECT_EQ(Level::error.text(), "error");
    EXPECT_EQ(Level::release.text(), "release");
    for (const int raw : {0, 3, 5, 6, 7, 9, 12, 16, -1})
        EXPECT_EQ(Level(raw).text(), "unknown") << raw;
}

TEST(FV2LoggingLevel, IsASetOfBits) {
    const Level traceUi{Level::trace, Level::ui};
    const Level uiError{Level::ui, Level::error};
    EXPECT_EQ(traceUi.rawValue(), 3);
    EXPECT_EQ(traceUi.unionWith(uiError), Level(7));
    EXPECT_EQ(traceUi.intersection(uiError), Level::ui);
    EXPECT_EQ(traceUi.symmetricDifference(uiError), Level(5));
    EXPECT_TRUE(traceUi.contains(Level::ui));
    EXPECT_FALSE(traceUi.contains(uiError));
    EXPECT_TRUE(Level::ui.isSubset(traceUi));
    EXPECT_FALSE(traceUi.isSubset(Level::ui));
    EXPECT_TRUE(traceUi.isSuperset(Level::ui));
    EXPECT_FALSE(Level::ui.isSuperset(traceUi));
    EXPECT_FALSE(traceUi.isDisjoint(uiError));
    EXPECT_TRUE(traceUi.isDisjoint(Level::release));
    EXPECT_TRUE(Level().isEmpty());
    Level changed = traceUi;
    changed.insert(Level::release);
    changed.remove(uiError);
    EXPECT_EQ(changed, Level(9));
}

TEST(ParseLogLevels, ReadsNamesAndReportsWhatItDoesNotKnow) {
    struct Case {
        std::string_view list;
        std::int64_t levels;
        std::vector<std::string> unknown;
    };
    const std::vector<Case> table{
        {"", 0, {}},     {"release", 8, {}}, {" trace ,\terror,", 5, {}},
        {"all", 15, {}}, {"ui,,ui", 2, {}},  {"Release,loud, re lease ,ui", 2, {"Release", "loud", "re lease"}}};
    for (const Case& each : table) {
        const ParsedLogLevels parsed = parseLogLevels(each.list);
        EXPECT_EQ(parsed.levels.rawValue(), each.levels) << each.list;
        EXPECT_EQ(parsed.unknownWords, each.unknown) << each.list;
    }
}

} // namespace
} // namespace fv2::test
