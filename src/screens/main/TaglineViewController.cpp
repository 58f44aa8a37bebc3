// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/TaglineViewController.h"

#include "logging/FV2Logging.h"
#include "toolkit/NxQtColor.h"
#include "ui_TaglineView.h"

namespace fv2 {

TaglineViewController::TaglineViewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    logTrace("TaglineViewController.init");
    Ui::TaglineView outlets;
    outlets.setupUi(view());
    backgroundView = outlets.backgroundView;
    taglineImageView = outlets.taglineImageView;
    initsubview();
}

void TaglineViewController::refreshColours(const FV2AppConfigModel& config) {
    backgroundView->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
    taglineImageView->setTintColor(toQColor(config.taglineTint()));
}

} // namespace fv2
