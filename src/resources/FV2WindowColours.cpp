// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2WindowColours.h"

#include <algorithm>
#include <cstdlib>

namespace fv2 {

namespace {

constexpr FV2WindowColour kColours[] = {
    {"window_titlebar", NxRgba::from255(63, 68, 74)},
    {"leftmenu_background", NxRgba::from255(63, 68, 74)},
    {"leftmenu_highlight", NxRgba::from255(88, 91, 96)},
    {"leftmenu_text", NxRgba::from255(255, 255, 255)},
    {"leftmenu_text_grayed", NxRgba::from255(190, 190, 190)},
    {"section_background", NxRgba::from255(255, 255, 255)},
    {"section_background_darkmode", NxRgba::from255(34, 36, 39)},
    {"seperator", NxRgba::from255(238, 238, 238)},
    {"seperator_darkmode", NxRgba::from255(63, 70, 78)},
    {"statusline_green", NxRgba::from255(141, 198, 64)},
    {"statusline_yellow", NxRgba::from255(251, 191, 1)},
    {"statusline_red", NxRgba::from255(220, 73, 65)},
    {"statusmessage_background_green", NxRgba::from255(238, 247, 227)},
    {"statusmessage_background_yellow", NxRgba::from255(252, 242, 220)},
    {"statusmessage_background_red", NxRgba::from255(249, 235, 233)},
    {"statusmessage_background_green_darkmode", NxRgba::from255(53, 62, 42)},
    {"statusmessage_background_yellow_darkmode", NxRgba::from255(76, 65, 28)},
    {"statusmessage_background_red_darkmode", NxRgba::from255(69, 41, 42)},
    {"placeholder", NxRgba::from255(0, 0, 255, 0)},
};

//! Where each field gets its colour; without a key of its own the dark appearance has the light one's.
constexpr struct {
    NxRgba FV2WindowColours::*field;
    std::string_view key;
    std::string_view darkKey;
} kFields[] = {
    {&FV2WindowColours::colourWindowTitlebar, "window_titlebar", {}},
    {&FV2WindowColours::colourLeftMenuBackground, "leftmenu_background", {}},
    {&FV2WindowColours::colourLeftMenuHighlight, "leftmenu_highlight", {}},
    {&FV2WindowColours::colourLeftMenuText, "leftmenu_text", {}},
    {&FV2WindowColours::colourLeftMenuTextGrayed, "leftmenu_text_grayed", {}},
    {&FV2WindowColours::colourSectionBackground, "section_background", "section_background_darkmode"},
    {&FV2WindowColours::colourStatusLineBackgroundGreen, "statusline_green", {}},
    {&FV2WindowColours::colourStatusLineBackgroundYellow, "statusline_yellow", {}},
    {&FV2WindowColours::colourStatusLineBackgroundRed, "statusline_red", {}},
    {&FV2WindowColours::colourStatusMessageBackgroundGreen, "statusmessage_background_green",
     "statusmessage_background_green_darkmode"},
    {&FV2WindowColours::colourStatusMessageBackgroundYellow, "statusmessage_background_yellow",
     "statusmessage_background_yellow_darkmode"},
    {&FV2WindowColours::colourStatusMessageBackgroundRed, "statusmessage_background_red",
     "statusmessage_background_red_darkmode"},
    {&FV2WindowColours::colourSeperator, "seperator", "seperator_darkmode"},
};

//! The entry of that name, or null.
constexpr const FV2WindowColour* find(std::span<const FV2WindowColour> table, std::string_view name) {
    const auto entry = std::ranges::find(table, name, &FV2WindowColour::name);
    return entry == table.end() ? nullptr : &*entry;
}

static_assert(std::ranges::all_of(kFields, [](const auto& field) {
    return find(kColours, field.key) != nullptr && (field.darkKey.empty() || find(kColours, field.darkKey) != nullptr);
}));

} // namespace

std::span<const FV2WindowColour> windowColourTable() {
    return kColours;
}

NxRgba windowColour(std::span<const FV2WindowColour> table, std::string_view name) {
    for (const std::string_view each : {name, std::string_view("placeholder")})
        if (const FV2WindowColour* const entry = find(table, each))
            return entry->colour;
    std::abort();
}

FV2WindowColours windowColours(bool dark) {
    FV2WindowColours colours;
    for (const auto& each : kFields)
        colours.*each.field = windowColour(kColours, dark && !each.darkKey.empty() ? each.darkKey : each.key);
    return colours;
}

} // namespace fv2
