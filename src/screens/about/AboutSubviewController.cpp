// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/about/AboutSubviewController.h"

#include "logging/FV2Logging.h"
#include "platform/FV2Browser.h"
#include "screens/LastSynchronisation.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "ui_AboutSubview.h"

#include <QCoreApplication>

#include <algorithm>

namespace fv2 {

namespace {

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

AboutSubviewController::AboutSubviewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    Ui::AboutSubview outlets;
    outlets.setupUi(view());
    fieldProductName = outlets.fieldProductName;
    fieldProductVersion = outlets.fieldProductVersion;
    m_fieldAgentVersion = outlets.fieldAgentVersion;
    viewHeaderSeperator = outlets.viewHeaderSeperator;
    viewSeperator = outlets.viewSeperator;
    fieldComputerName = outlets.fieldComputerName;
    fieldOperatingSystem = outlets.fieldOperatingSystem;
    fieldMachine = outlets.fieldMachine;
    fieldUUID = outlets.fieldUUID;
    fieldLastORMSync = outlets.fieldLastORMSync;
    buttonProxySync = outlets.buttonProxySync;
    outlets.body->setAutoFillBackground(false);
    buttonInstalledComponents = outlets.buttonInstalledComponents;
    connect(buttonProxySync, &QPushButton::clicked, this, &AboutSubviewController::ProxySyncButton);
    connect(outlets.buttonHelp, &QPushButton::clicked, this, &AboutSubviewController::onHelp);
    view()->setAccessibleName(outlets.fieldTitle->text());
    initsubview();
}

std::array<QPointer<AboutLineView>, 8> AboutSubviewController::lines() const {
    return {fieldProductName,     fieldProductVersion, m_fieldAgentVersion, fieldComputerName,
            fieldOperatingSystem, fieldMachine,        fieldUUID,           fieldLastORMSync};
}

void AboutSubviewController::updateFromModel() {
    logTrace("AboutSubviewController updateFromModel in");
    const FV2AppState& state = appModel.state();
    fieldProductName->setLine(translated(QStringLiteral("IDUS_MGUI_PRODUCT_NAME")),
                              translated(QStringLiteral("IDUS_PRODUCT_DISPLAY_NAME")));
    fieldProductVersion->setLine(translated(QStringLiteral("IDUS_MGUI_PRODUCT_VERSION")), shown(state.version));
    m_fieldAgentVersion->setLine(translated(QStringLiteral("IDUS_MGUI_AGENT_VERSION")),
                                 QCoreApplication::applicationVersion());
    fieldComputerName->setLine(translated(QStringLiteral("IDUS_MGUI_COMPUTER_NAME")), shown(state.computerName));
    fieldOperatingSystem->setLine(translated(QStringLiteral("IDUS_MGUI_OPERATING_SYSTEM")), shown(appConfigModel.os()));
    fieldMachine->setLine(translated(QStringLiteral("IDUS_MGUI_MACHINE")), shown(appConfigModel.machine()));
    fieldUUID->setLine(QStringLiteral("Workstation ID:"), shown(state.uuid));
    buttonInstalledComponents->hide();
    fieldLastORMSync->setLine(translated(QStringLiteral("IDUS_MGUI_LAST_SYNC")), lastSynchronisation(state));
    enableProxySync(state.syncORMEnabled && !state.syncORMActive);
    alignLabels();
    logTrace("AboutSubviewController updateFromModel out");
}

//! A button that is disabled loses the keyboard; it gets it back if the user has not moved on meanwhile.
void AboutSubviewController::enableProxySync(bool enabled) {
    const QWidget* const window = buttonProxySync->window();
    const bool hadFocus = window->focusWidget() == buttonProxySync;
    buttonProxySync->setEnabled(enabled);
    if (!enabled && hadFocus)
        m_focusAfterSync = window->focusWidget();
    if (!enabled || m_focusAfterSync == nullptr)
        return;
    if (window->focusWidget() == m_focusAfterSync)
        buttonProxySync->setFocus();
    m_focusAfterSync.clear();
}

void AboutSubviewController::ProxySyncButton() {
    enableProxySync(false);
    logRelease("Proxy Sync button clicked");
    appModel.syncProxyAsync(fv2SyncSource::User, true);
}

void AboutSubviewController::onHelp() {
    openInBrowser(appConfigModel.productModel().helpAddress);
}

void AboutSubviewController::alignLabels() {
    int widest = 0;
    for (const auto& line : lines())
        widest = std::max(widest, line->labelWidth());
    for (const auto& line : lines())
        line->setLabelWidth(widest);
}

void AboutSubviewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
    viewHeaderSeperator->setBackgroundColor(toQColor(config.colours().colourSeperator));
    viewSeperator->setBackgroundColor(toQColor(config.colours().colourSeperator));
}

} // namespace fv2
