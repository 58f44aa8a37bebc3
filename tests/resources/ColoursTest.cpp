// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2AppConfigModel.h"
#include "resources/NxAppearance.h"
#include "resources/NxColor.h"
#include "resources/NxDesign.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fv2::test {
namespace {

constexpr NxRgba kBlack = NxRgba::from255(0, 0, 0);
constexpr NxRgba kSteel = NxRgba::from255(51, 102, 204);

TEST(Colour, IsChosenByNameEditionAndTheProgramsAppearance) {
    const auto background = [](const char* edition) { return NxColor::color("section-background-color", edition); };
    const auto of = [&background](const char* appearance) {
        NxAppearance::setCurrent(appearance);
        return background("Home");
    };
    const auto light = of("aqua");
    EXPECT_NE(light, background("Business"));
    EXPECT_EQ(background("home"), background("Business")) << "as every other edition";
    EXPECT_NE(of("high-contrast"), light);
    EXPECT_EQ(NxColor::color("left-menu-background-color", "Home"), std::nullopt);
}

//! A property list with these elements as its reds.
std::string listOf(const std::string& elements) {
    return "<?xml version=\"1.0\"?>\n<plist><dict><key>Other</key><string>x</string><key>Colors</key>\n<dict>"
           "<key>Link</key><array/><key>Red</key> <array> " +
           elements + "</array></dict></dict></plist>";
}

TEST(Design, ScansAnEntryAsAHexadecimalNumber) {
    const std::pair<const char*, NxRgba> table[] = {
        {"<string>\n\t 0XFF3366CC</string>", kSteel},
        {"<string>0x123456789ABC</string>", NxRgba::from255(255, 255, 255)},
        {"<string>#3366CC</string>", kBlack},
        {"<integer>3368652</integer>", kBlack},
        {"<string>0x3366CC</string>", kSteel},
    };
    std::string all;
    for (const auto& [element, expected] : table)
        all += element;
    NxDesign design(listOf(all));
    for (std::size_t i = 0; i < std::size(table); ++i)
        EXPECT_EQ(design.getDesignColor(NxDesignColor::Red, i), table[i].second) << table[i].first;
    EXPECT_EQ(design.getDesignColor(NxDesignColor::Red, std::size(table)), kBlack);
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
        good.substr(0, good.size() - 3),
        listOf(deep),
        good + std::string(1024 * 1024, ' '),
        "<plist><dict><key>Colors</key><dict><key>Red</key><string>0x3366CC</string></dict></dict></plist>",
    };
    EXPECT_EQ(NxDesign(good).getDesignColor(NxDesignColor::Red), kSteel);
    for (const std::string& list : lists)
        EXPECT_EQ(NxDesign(list).getDesignColor(NxDesignColor::Red), kBlack) << list.substr(0, 80);
}

TEST(Configuration, TakesItsColoursAnewWhenTheAppearanceIsRefreshed) {
    bool dark = false;
    FV2AppConfigModel model([&dark] { return dark; }, "os", "machine", {"Business", "type"});
    const FV2WindowColours light = model.colours();
    dark = true;
    EXPECT_FALSE(model.isDarkMode());
    model.refreshAppearance();
    EXPECT_TRUE(model.isDarkMode());
    EXPECT_NE(model.colours().colourStatusMessageBackgroundRed, light.colourStatusMessageBackgroundRed);
    EXPECT_EQ(model.colours().colourLeftMenuHighlight, light.colourLeftMenuHighlight);
}

TEST(Configuration, FallsBackToThePlaceholderAndEndsWithoutOne) {
    const FV2AppConfigModel model([] { return false; }, "", "", {});
    EXPECT_EQ(model.colour("separator"), NxRgba::from255(0, 0, 255, 0));
    for (const auto& [name, path] : FV2AppConfigModel::imageDictionary())
        EXPECT_TRUE(std::filesystem::exists(RESOURCES + std::string(path.substr(1)))) << name;
    EXPECT_DEATH(static_cast<void>(windowColour(model.colourDictionary().first(3), "x")), "");
}

} // namespace
} // namespace fv2::test
