// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2AppConfigModel.h"

#include "resources/NxColor.h"

namespace fv2 {

namespace {

constexpr FV2AppConfigModel::ImageEntry kImages[] = {
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
    {"application_icon", ":/images/application_icon.svg"},
    {"threat_48x48", ":/images/threat_48x48.svg"},
    {"drive_template", ":/images/drive_template.svg"},
    {"caps_lock_template", ":/images/caps_lock_template.svg"},
    {"reveal_template", ":/images/reveal_template.svg"},
    {"conceal_template", ":/images/conceal_template.svg"},
};

} // namespace

FV2AppConfigModel::FV2AppConfigModel(std::function<bool()> isDarkMode, std::string os, std::string machine,
                                     ProductModel product)
    : m_askIsDarkMode(std::move(isDarkMode))
    , m_productModel(std::move(product))
    , m_os(std::move(os))
    , m_machine(std::move(machine)) {
    refreshAppearance();
}

std::span<const FV2AppConfigModel::ImageEntry> FV2AppConfigModel::imageDictionary() {
    return kImages;
}

NxRgba FV2AppConfigModel::taglineTint() const {
    return NxColor::color(NxColor::taglineTintColor, m_productModel.edition).value_or(colour("placeholder"));
}

NxRgba FV2AppConfigModel::designColour(NxDesignColor kind) const {
    return NxDesign::sharedDesign().getDesignColor(kind, m_isDarkMode ? 0 : 1);
}

void FV2AppConfigModel::refreshAppearance() {
    m_isDarkMode = m_askIsDarkMode();
    m_colours = windowColours(m_isDarkMode);
}

} // namespace fv2
