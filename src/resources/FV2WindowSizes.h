// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace fv2 {

struct FV2WindowSize {
    std::string_view name;
    int value; //!< in device-independent pixels
};

//! The sizes of the windows and of their parts.
inline constexpr std::array<FV2WindowSize, 7> kWindowSizes{{
    {"mainwindowx", 690},
    {"mainwindowy", 510},
    {"main_window_contentwidth", 480},
    {"mainwindow_leftmenuwidth", 210},
    {"leftmenu_rowheight", 32},
    {"pwwindowx", 450},
    {"pwwindowy", 300},
}};

//! The size of that name, looked up by the compiler: one that the table doesn't have is a compile error.
[[nodiscard]] consteval int windowSize(std::string_view name) {
    return std::ranges::find(kWindowSizes, name, &FV2WindowSize::name)->value;
}

} // namespace fv2
