// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2AppConfigModel.h"

#include "resources/NxColor.h"
#include "resources/NxDesign.h"

#include <algorithm>
#include <cstdlib>

namespace fv2 {

namespace {

using Model = FV2AppConfigModel;
using Colours = Model::Colours;

constexpr Model::ColourEntry kColours[] = {
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

constexpr Model::ImageEntry kImages[] = {
    {"orm_menu_icon", ":/images/orm_menu_icon.svg"},
    {"orm_menu_icon_sync", ":/images/orm_menu_icon_sync.svg"},
    {"orm_menu_icon_warning", ":/images/orm_menu_icon_warning.svg"},
    {"orm_menu_icon_alert", ":/images/orm_menu_icon_alert.svg"},
    {"home_template", ":/images/home_template.svg"},
    {"talvik_about_template", ":/images/talvik_about_template.svg"},
    {"warning_template", ":/images/warning_template.svg"},
    {"error_template", ":/images/error_template.svg"},
    {"green_notification_bubble", ":/images/green_notification_bubble.svg"},
    {"yellow_notification_bubble", ":/images/yellow_notification_bubble.svg"},
    {"red_notification_bubble", ":/images/red_notification_bubble.svg"},
    {"orm_product_logo", ":/images/orm_product_logo.svg"},
    {"ok_white_32x32", ":/images/ok_white_32x32.svg"},
    {"warning_white_32x32", ":/images/warning_white_32x32.svg"},
    {"threat_white_32x32", ":/images/threat_white_32x32.svg"},
    {"tagline", ":/images/tagline.svg"},
};

//! Where each field gets its colour; without a key of its own the dark appearance has the light one's.
constexpr struct {
    NxRgba Colours::*field;
    std::string_view key;
    std::string_view darkKey;
} kFields[] = {
    {&Colours::colourWindowTitlebar, "window_titlebar", {}},
    {&Colours::colourLeftMenuBackground, "leftmenu_background", {}},
    {&Colours::colourLeftMenuHighlight, "leftmenu_highlight", {}},
    {&Colours::colourLeftMenuText, "leftmenu_text", {}},
    {&Colours::colourLeftMenuTextGrayed, "leftmenu_text_grayed", {}},
    {&Colours::colourSectionBackground, "section_background", "section_background_darkmode"},
    {&Colours::colourStatusLineBackgroundGreen, "statusline_green", {}},
    {&Colours::colourStatusLineBackgroundYellow, "statusline_yellow", {}},
    {&Colours::colourStatusLineBackgroundRed, "statusline_red", {}},
    {&Colours::colourStatusMessageBackgroundGreen, "statusmessage_background_green",
     "statusmessage_background_green_darkmode"},
    {&Colours::colourStatusMessageBackgroundYellow, "statusmessage_background_yellow",
     "statusmessage_background_yellow_darkmode"},
    {&Colours::colourStatusMessageBackgroundRed, "statusmessage_background_red",
     "statusmessage_background_red_darkmode"},
    {&Colours::colourSeperator, "seperator", "seperator_darkmode"},
};

//! The entry of that name, or null.
constexpr const Model::ColourEntry* find(std::span<const Model::ColourEntry> table, std::string_view name) {
    const auto entry = std::ranges::find(table, name, &Model::ColourEntry::name);
    return entry == table.end() ? nullptr : &*entry;
}

static_assert(std::ranges::all_of(kFields, [](const auto& field) {
    return find(kColours, field.key) != nullptr && (field.darkKey.empty() || find(kColours, field.darkKey) != nullptr);
}));

} // namespace

FV2AppConfigModel::FV2AppConfigModel(std::function<bool()> isDarkMode, std::string os, std::string machine,
                                     ProductModel product)
    : m_askIsDarkMode(std::move(isDarkMode))
    , m_productModel(std::move(product))
    , m_os(std::move(os))
    , m_machine(std::move(machine)) {
    refreshAppearance();
}

std::span<const Model::ColourEntry> FV2AppConfigModel::colourDictionary() {
    return kColours;
}
std::span<const Model::ImageEntry> FV2AppConfigModel::imageDictionary() {
    return kImages;
}

NxRgba FV2AppConfigModel::colourIn(std::span<const ColourEntry> dictionary, std::string_view key) {
    for (const std::string_view each : {key, std::string_view("placeholder")})
        if (const ColourEntry* const entry = find(dictionary, each))
            return entry->colour;
    std::abort();
}

NxRgba FV2AppConfigModel::taglineTint() const {
    return NxColor::color(NxColor::taglineTintColor, m_productModel.edition).value_or(colour("placeholder"));
}

NxRgba FV2AppConfigModel::linkColour() const {
    return NxDesign::sharedDesign().getDesignColor(NxDesignColor::Link, m_isDarkMode ? 0 : 1);
}

void FV2AppConfigModel::refreshAppearance() {
    m_isDarkMode = m_askIsDarkMode();
    for (const auto& each : kFields)
        m_colours.*each.field = colour(m_isDarkMode && !each.darkKey.empty() ? each.darkKey : each.key);
}

} // namespace fv2
