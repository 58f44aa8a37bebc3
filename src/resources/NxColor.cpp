// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/NxColor.h"

#include "resources/NxAppearance.h"

#include <algorithm>

namespace fv2 {

namespace {

constexpr NxColor::Entry kCommon[] = {
    {NxColor::leftMenuTintColor, NxRgba::from255(255, 255, 255)},
    {NxColor::leftMenuSecondaryTintColor, NxRgba::from255(190, 190, 190)},
    {NxColor::statusLineInfoColor, NxRgba::from255(100, 180, 222)},
    {NxColor::statusLineWarningColor, NxRgba::from255(253, 201, 0)},
    {NxColor::statusLineErrorColor, NxRgba::from255(232, 89, 73)},
};

constexpr NxColor::Entry kAquaCommon[] = {
    {NxColor::separatorColor, NxRgba::from255(210, 210, 210)},
    {NxColor::separatorSecondColor, NxRgba::from255(238, 238, 238)},
    {NxColor::taglineTintColor, NxRgba::from255(201, 201, 201)},
    {NxColor::textColor, NxRgba::from255(0, 0, 0)},
};

constexpr NxColor::Entry kDarkCommon[] = {
    {NxColor::separatorColor, NxRgba::from255(63, 70, 78)},
    {NxColor::separatorSecondColor, NxRgba::from255(63, 70, 78)},
    {NxColor::taglineTintColor, NxRgba::from255(167, 167, 167)},
    {NxColor::textColor, NxRgba::from255(255, 255, 255)},
};

constexpr NxColor::Entry kAquaBusiness[] = {
    {NxColor::leftMenuBackgroundColor, NxRgba::from255(55, 60, 66)},
    {NxColor::statusMessagesBackgroundColor, NxRgba::from255(255, 255, 255)},
    {NxColor::sectionBackgroundColor, NxRgba::from255(255, 255, 255)},
    {NxColor::statusMessageWarningColor, NxRgba::from255(250, 242, 222)},
    {NxColor::statusMessageErrorColor, NxRgba::from255(252, 235, 226)},
    {NxColor::statusMessageInfoColor, NxRgba::from255(214, 230, 243)},
    {NxColor::updateProgressBackgroundColor, NxRgba::from255(242, 242, 242)},
};

constexpr NxColor::Entry kDarkBusiness[] = {
    {NxColor::leftMenuBackgroundColor, NxRgba::from255(55, 60, 66)},
    {NxColor::statusMessagesBackgroundColor, NxRgba::from255(31, 33, 35)},
    {NxColor::sectionBackgroundColor, NxRgba::from255(31, 33, 35)},
    {NxColor::statusMessageWarningColor, NxRgba::from255(36, 38, 42)},
    {NxColor::statusMessageErrorColor, NxRgba::from255(36, 38, 42)},
    {NxColor::statusMessageInfoColor, NxRgba::from255(36, 38, 42)},
    {NxColor::updateProgressBackgroundColor, NxRgba::from255(0, 0, 0)},
};

constexpr NxColor::Entry kAquaHome[] = {
    {NxColor::statusMessagesBackgroundColor, NxRgba::from255(241, 241, 241)},
    {NxColor::sectionBackgroundColor, NxRgba::from255(241, 241, 241)},
    {NxColor::statusMessageWarningColor, NxRgba::from255(255, 255, 255)},
    {NxColor::statusMessageErrorColor, NxRgba::from255(255, 255, 255)},
    {NxColor::statusMessageInfoColor, NxRgba::from255(255, 255, 255)},
};

constexpr NxColor::Entry kDarkHome[] = {
    {NxColor::statusMessagesBackgroundColor, NxRgba::from255(49, 52, 56)},
    {NxColor::sectionBackgroundColor, NxRgba::from255(49, 52, 56)},
    {NxColor::statusMessageWarningColor, NxRgba::from255(36, 38, 42)},
    {NxColor::statusMessageErrorColor, NxRgba::from255(36, 38, 42)},
    {NxColor::statusMessageInfoColor, NxRgba::from255(36, 38, 42)},
};

} // namespace

std::span<const NxColor::Entry> NxColor::commonColors() {
    return kCommon;
}
std::span<const NxColor::Entry> NxColor::aquaCommonColors() {
    return kAquaCommon;
}
std::span<const NxColor::Entry> NxColor::darkCommonColors() {
    return kDarkCommon;
}
std::span<const NxColor::Entry> NxColor::aquaColorsBusiness() {
    return kAquaBusiness;
}
std::span<const NxColor::Entry> NxColor::darkColorsBusiness() {
    return kDarkBusiness;
}
std::span<const NxColor::Entry> NxColor::aquaColorsHome() {
    return kAquaHome;
}
std::span<const NxColor::Entry> NxColor::darkColorsHome() {
    return kDarkHome;
}

std::optional<NxRgba> NxColor::color(std::string_view name, std::string_view productEdition) {
    return colorWithAppearance(name, productEdition, NxAppearance::current());
}

std::optional<NxRgba> NxColor::colorWithAppearance(std::string_view name, std::string_view productEdition,
                                                   std::string_view appearance) {
    const bool light = appearance == NxAppearance::aqua;
    const bool home = productEdition == "Home";
    for (const auto table :
         {commonColors(), light ? aquaCommonColors() : darkCommonColors(),
          home ? (light ? aquaColorsHome() : darkColorsHome()) : (light ? aquaColorsBusiness() : darkColorsBusiness())})
        if (const auto entry = std::ranges::find(table, name, &Entry::name); entry != table.end())
            return entry->colour;
    return std::nullopt;
}

} // namespace fv2
