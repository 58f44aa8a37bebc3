// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2ViewController.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowController.h"

namespace fv2 {

FV2ViewController::FV2ViewController(std::weak_ptr<FV2AppStateModel> model, QWidget* view)
    : appModel(std::move(model))
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

FV2View* FV2ViewController::initsubview() {
    m_description = description(*this);
    logUi("FV2ViewController.initsubview for ", m_description);
    auto* const own = qobject_cast<FV2View*>(m_view);
    if (own == nullptr || appModel.expired())
        return nullptr;
    own->setupWithModel(appModel);
    connect(own, &FV2View::effectiveAppearanceChanged, this, &FV2ViewController::refreshAppearance);
    refreshAppearance();
    return own;
}

void FV2ViewController::refreshAppearance() {
    const auto model = appModel.lock();
    if (model != nullptr && model->appConfigModel() != nullptr)
        refreshColours(*model->appConfigModel());
}

} // namespace fv2
