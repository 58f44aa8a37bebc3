// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/NxRgba.h"

#include <span>
#include <string_view>

namespace fv2 {

struct FV2WindowColour {
    std::string_view name;
    NxRgba colour;
};

//! The colours of the windows and of their parts, under one appearance.
struct FV2WindowColours {
    NxRgba colourWindowTitlebar;
    NxRgba colourLeftMenuBackground;
    NxRgba colourLeftMenuHighlight;
    NxRgba colourLeftMenuText;
    NxRgba colourLeftMenuTextGrayed;
    NxRgba colourSectionBackground;
    NxRgba colourStatusLineBackgroundGreen;
    NxRgba colourStatusLineBackgroundYellow;
    NxRgba colourStatusLineBackgroundRed;
    NxRgba colourStatusMessageBackgroundGreen;
    NxRgba colourStatusMessageBackgroundYellow;
    NxRgba colourStatusMessageBackgroundRed;
    NxRgba colourSeperator;
};

//! The colours by name, those of both appearances. Any thread, like the next two.
[[nodiscard]] std::span<const FV2WindowColour> windowColourTable();
//! The colour of that name, the entry "placeholder" for a missing one; ends the program when that is missing too.
[[nodiscard]] NxRgba windowColour(std::span<const FV2WindowColour> table, std::string_view name);
[[nodiscard]] FV2WindowColours windowColours(bool dark);

} // namespace fv2
