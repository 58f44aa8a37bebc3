// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/setup/SetupSubviewController.h"

#include "logging/FV2Logging.h"
#include "toolkit/NxQtColor.h"
#include "ui_SetupSubview.h"

namespace fv2 {

SetupSubviewController::SetupSubviewController(const std::weak_ptr<FV2AppStateModel>& model)
    : FV2ViewController(model, new FV2View) {
    logTrace("SetupSubviewController.init");
    Ui::SetupSubview outlets;
    outlets.setupUi(static_cast<FV2View*>(view()));
    dontRemoveFromSuperview = false;
    initsubview();
}

void SetupSubviewController::refreshColours(const FV2AppConfigModel& config) {
    static_cast<FV2View*>(view())->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
}

} // namespace fv2
