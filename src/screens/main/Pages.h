// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/main/eMainWindowContentSubViewType.h"

#include <Qt>

#include <array>
#include <memory>
#include <optional>

namespace fv2 {

class FV2AppConfigModel;
class FV2AppStateModel;
class FV2ViewController;

//! One page of the main window: what the left menu, the keys and the window need to know of it. A page without a title
//! has no row in the menu.
struct MainWindowPage {
    eMainWindowContentSubViewType kind = eMainWindowContentSubViewType::None;
    const char* title = nullptr;
    const char* icon = nullptr;                //!< of the row; the first row's follows the traffic light
    const char* help = nullptr;                //!< what screen readers tell of the row beside its title
    std::optional<Qt::Key> key = std::nullopt; //!< chooses the row, with Ctrl
    const char* logName = nullptr;
    const char* logTitle = nullptr; //!< what the log calls the page when it is shown; nothing is said without it
    std::unique_ptr<FV2ViewController> (*make)(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel) = nullptr;
};

inline constexpr std::size_t kPageCount = 3;

//! In the order of the menu. A new page takes a kind, a row here and a folder for its screen.
extern const std::array<MainWindowPage, kPageCount> kPages;

} // namespace fv2
