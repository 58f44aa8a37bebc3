// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/ProtectionStatusSubviewController.h"

#include "logging/FV2Logging.h"
#include "model/FV2StatusLook.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"
#include "ui_ProtectionStatusSubview.h"

namespace fv2 {

ProtectionStatusSubviewController::ProtectionStatusSubviewController(FV2AppStateModel& model,
                                                                     FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    logTrace("ProtectionStatusSubviewController.init");
    Ui::ProtectionStatusSubview outlets;
    outlets.setupUi(view());
    statusLineView = outlets.statusLineView;
    statusLineIcon = outlets.statusLineIcon;
    statusLineText = outlets.statusLineText;
    statusMessagesTableView = outlets.statusMessagesTableView;
    m_nothingToDo = outlets.nothingToDo;
    m_nothingToDo->setAutoFillBackground(false);
    m_nothingToDoScrollView = outlets.nothingToDoScrollView;
    statusMessagesTableView->setAccessibleName(translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS")));
    tableViewDelegate = std::make_unique<StatusMessagesTableDelegate>(model, configModel, *statusMessagesTableView);
    initsubview();
}

void ProtectionStatusSubviewController::updateFromModel() {
    logTrace("ProtectionStatusSubviewController.updateFromModel in");
    const FV2StatusLook& look = lookOf(appModel.state().overallState);
    statusLineIcon->setImageName(QString::fromUtf8(look.statusLineIcon));
    statusLineText->setStringValue(QString::fromUtf8(look.title));
    view()->setAccessibleName(statusLineText->text());
    m_nothingToDo->show(appModel.state());
    const bool hasMessages = !appModel.state().statusMessageList.empty();
    m_nothingToDoScrollView->setVisible(!hasMessages);
    statusMessagesTableView->setVisible(hasMessages);
    refreshColours(appConfigModel);
    tableViewDelegate->updateFromModel(*statusMessagesTableView);
    logTrace("ProtectionStatusSubviewController.updateFromModel out");
}

void ProtectionStatusSubviewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
    const FV2StatusLook& look = lookOf(appModel.state().overallState);
    const QColor background = toQColor(config.colours().*look.statusLineColour);
    m_nothingToDo->setColours(config);
    const QColor foreground = readableOn(background);
    statusLineView->setBackgroundColor(background);
    statusLineText->setTextColor(foreground);
    statusLineIcon->setTintColor(foreground);
}

} // namespace fv2
