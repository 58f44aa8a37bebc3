// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2AppConfigModel.h"
#include "resources/NxAppearance.h"
#include "resources/NxColor.h"
#include "resources/NxDesign.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace fv2::test {
namespace {

constexpr NxRgba kBlack = NxRgba::from255(0, 0, 0);
constexpr NxRgba kPlaceholder = NxRgba::from255(0, 0, 255, 0);

TEST(Colour, IsChosenByNameEditionAndAppearance) {
    struct Case {
        std::string_view name, edition, appearance;
        std::optional<NxRgba> expected;
    };
    const Case table[] = {
        {"text-color", "Home", "Aqua", NxRgba::from255(255, 255, 255)},
        {"left-menu-background-color", "Home", "aqua", std::nullopt},
        {"left-menu-background-color", "home", "aqua", NxRgba::from255(55, 60, 66)},
        {"section-background-color", "Home", "dark", NxRgba::from255(49, 52, 56)},
        {"section-background-color", "Business", "dark", NxRgba::from255(31, 33, 35)},
        {"no-such-color", "Business", "aqua", std::nullopt},
    };
    for (const Case& each : table)
        EXPECT_EQ(NxColor::colorWithAppearance(each.name, each.edition, each.appearance), each.expected)
            << each.name << " " << each.edition << " " << each.appearance;
}

TEST(Colour, FollowsTheProgramsAppearanceAtEveryLookup) {
    const auto text = [] { return NxColor::color(NxColor::textColor, "Home").value_or(kPlaceholder).red; };
    EXPECT_EQ(text(), 0.0);
    for (const auto& [name, red] : {std::pair{"high-contrast", 1.0}, {"aqua", 0.0}, {"dark", 1.0}, {"aqua", 0.0}}) {
        NxAppearance::setCurrent(name);
        EXPECT_EQ(text(), red) << name;
    }
}

//! A property list with these elements as its reds.
std::string listOf(const std::string& elements) {
    return "<?xml version=\"1.0\"?>\n<plist><dict><key>Other</key><string>x</string><key>Colors</key>\n<dict>"
           "<key>Link</key><array/><key>Red</key> <array> " +
           elements + "</array></dict></dict></plist>";
}

TEST(Design, ScansAnEntryAsAHexadecimalNumber) {
    struct Case {
        std::string element;
        NxRgba expected;
    };
    const NxRgba steel = NxRgba::from255(51, 102, 204);
    const Case table[] = {
        {"<string>0x3366CC</string>", steel},
        {"<string>\n\t 0XFF3366CC</string>", steel},
        {"<string>0x123456789ABC</string>", NxRgba::from255(255, 255, 255)},
        {"<string>#3366CC</string>", kBlack},
        {"<string/>", kBlack},
        {"<integer>3368652</integer>", kBlack},
        {"<array><string>0x3366CC</string></array>", kBlack},
    };
    std::string all;
    for (const Case& each : table)
        all += each.element;
    NxDesign design(listOf(all));
    for (std::size_t i = 0; i < std::size(table); ++i)
        EXPECT_EQ(design.getDesignColor(NxDesignColor::Red, i), table[i].expected) << table[i].element;
    EXPECT_EQ(design.getDesignColor(NxDesignColor::Red, std::size(table)), kBlack);
    EXPECT_EQ(design.getDesignColor(NxDesignColor::Link, 1), kBlack);
    EXPECT_EQ(design.getDesignColor(NxDesignColor::Green), kBlack);
    EXPECT_EQ(design.getDesignColor(NxDesignColor{99}), kBlack);
}

TEST(Design, OfABrokenListIsBlack) {
    const std::string good = listOf("<string>0x3366CC</string>");
    std::string deep;
    for (const char* tag : {"<array>", "</array>"})
        for (int i = 0; i < 60'000; ++i)
            deep += tag;
    const std::string lists[] = {
        "",
        std::string("\0\0\xff", 3),
        good.substr(0, good.size() - 3),
        listOf(deep),
        good + std::string(1024 * 1024, ' '),
        "<plist><array><string>0x3366CC</string></array></plist>",
        "<plist><dict><key>Colors</key><array><string>0x3366CC</string></array></dict></plist>",
        "<plist><dict><key>Colors</key><dict><key>Red</key><string>0x3366CC</string></dict></dict></plist>",
    };
    EXPECT_NE(NxDesign(good).getDesignColor(NxDesignColor::Red), kBlack);
    for (const std::string& list : lists)
        EXPECT_EQ(NxDesign(list).getDesignColor(NxDesignColor::Red), kBlack) << list.substr(0, 80);
}

//! How well two colours can be told apart, 1 to 21, as WCAG 2 counts it.
double contrast(const NxRgba& one, const NxRgba& other) {
    const auto luminance = [](const NxRgba& colour) {
        const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(Design, OfTheProgramCanBeReadOnItsBackgrounds) {
    NxDesign::setResource([] { return contentOf(RESOURCES "/design.plist"); });
    NxDesign& design = NxDesign::sharedDesign();
    EXPECT_EQ(&design, &NxDesign::sharedDesign());
    for (const bool dark : {true, false}) {
        const FV2AppConfigModel model([dark] { return dark; }, "", "", {});
        const FV2AppConfigModel::Colours& on = model.colours();
        const NxRgba link = design.getDesignColor(NxDesignColor::Link, dark ? 0 : 1);
        for (const NxRgba& background : {on.colourSectionBackground, on.colourStatusMessageBackgroundGreen,
                                         on.colourStatusMessageBackgroundYellow, on.colourStatusMessageBackgroundRed})
            EXPECT_GE(contrast(link, background), 4.5) << dark;
        for (const auto kind : {NxDesignColor::Red, NxDesignColor::Green, NxDesignColor::Blue, NxDesignColor::Yellow})
            EXPECT_GE(contrast(design.getDesignColor(kind), on.colourLeftMenuBackground), 3.0) << int(kind);
    }
}

TEST(Configuration, TakesItsColoursAnewWhenTheAppearanceIsRefreshed) {
    bool dark = false;
    FV2AppConfigModel model([&dark] { return dark; }, "os", "machine", {"Home", "type"});
    dark = true;
    EXPECT_FALSE(model.isDarkMode());
    model.refreshAppearance();
    const FV2AppConfigModel::Colours& now = model.colours();
    EXPECT_TRUE(model.isDarkMode());
    EXPECT_EQ(now.colourStatusMessageBackgroundGreen, NxRgba::from255(53, 62, 42));
    EXPECT_EQ(now.colourStatusMessageBackgroundYellow, NxRgba::from255(76, 65, 28));
    EXPECT_EQ(now.colourStatusMessageBackgroundRed, NxRgba::from255(69, 41, 42));
    EXPECT_EQ(now.colourLeftMenuHighlight, NxRgba::from255(88, 91, 96));
}

TEST(Configuration, FallsBackToThePlaceholderAndEndsWithoutOne) {
    const FV2AppConfigModel model([] { return false; }, "", "", {});
    EXPECT_EQ(model.colour("separator"), kPlaceholder);
    EXPECT_EQ(model.colour("statusline_yellow"), NxRgba::from255(251, 191, 1));
    EXPECT_EQ(model.integer("mainwindow_leftmenuwidth"), 210);
    EXPECT_EQ(model.integer("placeholder"), std::nullopt);
    for (const auto& [name, path] : FV2AppConfigModel::imageDictionary())
        EXPECT_TRUE(std::filesystem::exists(RESOURCES + std::string(path.substr(1)))) << name;
    EXPECT_DEATH(static_cast<void>(FV2AppConfigModel::colourIn(model.colourDictionary().first(3), "x")), "");
}

} // namespace
} // namespace fv2::test
