// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/setup/SetupSubviewController.h"

#include "logging/FV2Logging.h"
#include "toolkit/NxQtColor.h"
#include "ui_SetupSubview.h"

namespace fv2 {

SetupSubviewController::SetupSubviewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    logTrace("SetupSubviewController.init");
    Ui::SetupSubview outlets;
    outlets.setupUi(view());
    dontRemoveFromSuperview = false;
    initsubview();
}

void SetupSubviewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
}

} // namespace fv2
