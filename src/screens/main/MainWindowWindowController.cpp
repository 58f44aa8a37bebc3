// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/MainWindowWindowController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2WindowSizes.h"
#include "toolkit/NxTranslated.h"

namespace fv2 {

namespace {

std::unique_ptr<FV2Window> makeMainWindow() {
    logTrace("MainWindowWindowController.init");
    const QSize size(windowSize("mainwindowx"), windowSize("mainwindowy"));
    logTrace("MainWindowWindowController.init make wnd");
    auto window = std::make_unique<FV2Window>(size);
    logTrace("MainWindowWindowController.init go init");
    return window;
}

} // namespace

MainWindowWindowController::MainWindowWindowController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2MainWindowController(model, makeMainWindow()) {
    logTrace("MainWindowWindowController.init done init for ", description(*this), " wnd ", description(window()));
    m_viewController = makeController<MainWindowViewController>(model, configModel);
    window().setContentView(m_viewController->view());
    m_viewController->setUp();
    // Shown where the desktop lists its windows, and read out by screen readers.
    window().setWindowTitle(translated(QStringLiteral("IDUS_PRODUCT_DISPLAY_NAME")));
    window().center();
    logTrace("MainWindowWindowController.init OUT for ", description(*this));
}

void MainWindowWindowController::updateFromModel() {
    if (m_viewController)
        m_viewController->updateFromModel();
}

void MainWindowWindowController::selectProtectionStatusPage() {
    if (m_viewController)
        m_viewController->selectPage(eMainWindowContentSubViewType::ProtectionStatus);
}

void MainWindowWindowController::windowWillClose() {
    logTrace("MainWindowWindowController.windowWillClose for ", description(*this));
    m_viewController.reset();
    FV2MainWindowController::windowWillClose();
}

} // namespace fv2
