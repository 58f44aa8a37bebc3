// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/NxRgba.h"

#include <optional>
#include <span>
#include <string_view>

namespace fv2 {

//! Named colours, chosen by appearance and product edition from fixed tables. Screens read one of them, the tagline's
//! tint, through FV2AppConfigModel; the left menu, the pages and the messages have their colours there. Any thread.
class NxColor {
public:
    struct Entry {
        std::string_view name;
        NxRgba colour;
    };

    static constexpr std::string_view leftMenuBackgroundColor = "left-menu-background-color";
    static constexpr std::string_view leftMenuTintColor = "left-menu-tint-color";
    static constexpr std::string_view leftMenuSecondaryTintColor = "left-menu-secondary-tint-color";
    static constexpr std::string_view sectionBackgroundColor = "section-background-color";
    static constexpr std::string_view separatorColor = "separator-color";
    static constexpr std::string_view separatorSecondColor = "separator-second-color";
    static constexpr std::string_view taglineTintColor = "tagline-tint-color";
    static constexpr std::string_view textColor = "text-color";
    static constexpr std::string_view statusMessagesBackgroundColor = "status-messages-background-color";
    static constexpr std::string_view statusMessageWarningColor = "status-message-warning-color";
    static constexpr std::string_view statusMessageErrorColor = "status-message-error-color";
    static constexpr std::string_view statusMessageInfoColor = "status-message-info-color";
    static constexpr std::string_view statusLineInfoColor = "status-line-info-color";
    static constexpr std::string_view statusLineWarningColor = "status-line-warning-color";
    static constexpr std::string_view statusLineErrorColor = "status-line-error-color";
    static constexpr std::string_view updateProgressBackgroundColor = "update-progress-background-color";

    //! The colour under the appearance that the program has at this moment. None for an unknown name; the edition
    //! "Home", spelt exactly so, has no menu background and no update progress background.
    [[nodiscard]] static std::optional<NxRgba> color(std::string_view name, std::string_view productEdition);
    //! The same under the given appearance: `NxAppearance::aqua` is light, any other name is dark.
    [[nodiscard]] static std::optional<NxRgba>
    colorWithAppearance(std::string_view name, std::string_view productEdition, std::string_view appearance);

    [[nodiscard]] static std::span<const Entry> commonColors();
    [[nodiscard]] static std::span<const Entry> aquaCommonColors();
    [[nodiscard]] static std::span<const Entry> darkCommonColors();
    [[nodiscard]] static std::span<const Entry> aquaColorsBusiness();
    [[nodiscard]] static std::span<const Entry> darkColorsBusiness();
    [[nodiscard]] static std::span<const Entry> aquaColorsHome();
    [[nodiscard]] static std::span<const Entry> darkColorsHome();
};

} // namespace fv2
