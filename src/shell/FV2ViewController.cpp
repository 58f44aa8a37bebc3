// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2ViewController.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowController.h"

namespace fv2 {

FV2ViewController::FV2ViewController(FV2AppStateModel& model, FV2AppConfigModel& configModel, FV2View* view)
    : appModel(model)
    , appConfigModel(configModel)
    , m_view(view)
    , m_description(description(*this))
    , m_viewDescription(description(*view)) {
}

FV2ViewController::~FV2ViewController() {
    const std::string who = "FV2ViewController.deinit for vc " + m_description;
    if (dontRemoveFromSuperview) {
        logUi(who, " view ", m_viewDescription, " (not calling removeFromSuperview)");
        return;
    }
    logUi(who, " calling removeFromSuperview for view ", m_viewDescription, " ");
    delete m_view;
}

void FV2ViewController::initsubview() {
    m_description = description(*this);
    logUi("FV2ViewController.initsubview for ", m_description);
    m_view->setupWithModel(appConfigModel);
    connect(m_view, &FV2View::effectiveAppearanceChanged, this, [this] { refreshColours(appConfigModel); });
    refreshColours(appConfigModel);
}

} // namespace fv2
