// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "resources/FV2WindowColours.h"
#include "resources/NxDesign.h"

#include <array>

namespace fv2 {

//! All that a traffic light changes on screen, in the tray and for screen readers.
struct FV2StatusLook {
    using Colour = NxRgba FV2WindowColours::*;

    fv2StatusStateType light;
    const char* title;  //!< identifier of the status line's text, which is the tray's tooltip too
    const char* spoken; //!< identifier of the status's name
    const char* trayIcon;
    const char* statusLineIcon;
    Colour statusLineColour;
    Colour messageColour;     //!< behind a status message of this light
    const char* menuIcon;     //!< of the left menu's first row, and the sign of such a message
    NxDesignColor signColour; //!< of that sign
    const char* numberBubble; //!< behind the number beside it
    bool isNumberDark;
};

//! In the order of the lights.
inline constexpr std::array<FV2StatusLook, 3> kStatusLooks{{
    {.light = fv2StatusStateType::Green,
     .title = "IDUS_MGUI_STATUS_TITLE_GREEN",
     .spoken = "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_OK",
     .trayIcon = "orm_menu_icon",
     .statusLineIcon = "ok_white_32x32",
     .statusLineColour = &FV2WindowColours::colourStatusLineBackgroundGreen,
     .messageColour = &FV2WindowColours::colourStatusMessageBackgroundGreen,
     .menuIcon = "home_template",
     .signColour = NxDesignColor::Green,
     .numberBubble = "green_notification_bubble",
     .isNumberDark = false},
    {.light = fv2StatusStateType::Yellow,
     .title = "IDUS_MGUI_STATUS_TITLE_YELLOW",
     .spoken = "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_WARNING",
     .trayIcon = "orm_menu_icon_warning",
     .statusLineIcon = "warning_white_32x32",
     .statusLineColour = &FV2WindowColours::colourStatusLineBackgroundYellow,
     .messageColour = &FV2WindowColours::colourStatusMessageBackgroundYellow,
     .menuIcon = "warning_template",
     .signColour = NxDesignColor::Yellow,
     .numberBubble = "yellow_notification_bubble",
     .isNumberDark = true},
    {.light = fv2StatusStateType::Red,
     .title = "IDUS_MGUI_STATUS_TITLE_RED",
     .spoken = "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_ERROR",
     .trayIcon = "orm_menu_icon_alert",
     .statusLineIcon = "threat_white_32x32",
     .statusLineColour = &FV2WindowColours::colourStatusLineBackgroundRed,
     .messageColour = &FV2WindowColours::colourStatusMessageBackgroundRed,
     .menuIcon = "error_template",
     .signColour = NxDesignColor::Red,
     .numberBubble = "red_notification_bubble",
     .isNumberDark = false},
}};

[[nodiscard]] constexpr const FV2StatusLook& lookOf(fv2StatusStateType light) {
    return kStatusLooks.at(static_cast<std::size_t>(light));
}
static_assert(lookOf(fv2StatusStateType::Green).light == fv2StatusStateType::Green &&
              lookOf(fv2StatusStateType::Yellow).light == fv2StatusStateType::Yellow &&
              lookOf(fv2StatusStateType::Red).light == fv2StatusStateType::Red);

} // namespace fv2
