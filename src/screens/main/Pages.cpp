// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/Pages.h"

#include "screens/about/AboutSubviewController.h"
#include "screens/setup/SetupSubviewController.h"
#include "screens/status/ProtectionStatusSubviewController.h"

namespace fv2 {

namespace {

template <class Controller>
std::unique_ptr<FV2ViewController> makePage(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel) {
    return std::make_unique<Controller>(appModel, appConfigModel);
}

} // namespace

constexpr std::array<MainWindowPage, kPageCount> kPages{{
    {.kind = eMainWindowContentSubViewType::ProtectionStatus,
     .title = "IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS",
     .icon = "home_template",
     .help = "IDUS_MGUI_PROTECTION_STATUS_INDICATOR_ACC_HELP",
     .key = Qt::Key_1,
     .logName = "prot stat",
     .logTitle = "Protection Status",
     .make = makePage<ProtectionStatusSubviewController>},
    {.kind = eMainWindowContentSubViewType::Setup, .logName = "setup", .make = makePage<SetupSubviewController>},
    {.kind = eMainWindowContentSubViewType::About,
     .title = "IDUS_MGUI_LEFT_MENU_ABOUT",
     .icon = "talvik_about_template",
     .help = "IDUS_MGUI_ABOUT_INDICATOR_ACC_HELP",
     .key = Qt::Key_2,
     .logName = "about",
     .logTitle = "About",
     .make = makePage<AboutSubviewController>},
}};

static_assert(kPages.back().kind != eMainWindowContentSubViewType::None, "kPageCount counts more pages than there are");

} // namespace fv2
