// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/EnterPasswordWindowWindowController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2WindowSizes.h"
#include "toolkit/NxTranslated.h"

namespace fv2 {

namespace {

std::unique_ptr<FV2Window> makeWindow() {
    logTrace("EnterPasswordWindowWindowController.init");
    return std::make_unique<FV2Window>(QSize(windowSize("pwwindowx"), windowSize("pwwindowy")));
}

} // namespace

EnterPasswordWindowWindowController::EnterPasswordWindowWindowController(FV2AppStateModel& model,
                                                                         FV2AppConfigModel& configModel,
                                                                         const std::string& userName, bool isEncrypting)
    : FV2PasswordWindowController(model, makeWindow())
    , titlebarViewController(std::make_unique<FV2WindowTitlebarAccessoryViewController>(model, configModel))
    , viewController(makeController<EnterPasswordWindowViewController>(model, configModel, userName, isEncrypting))
    , encrypting(isEncrypting) {
    titlebarViewController->attachTo(*this, encrypting ? QStringLiteral("IDUS_PASSWORDDIALOG_HEADING_ENC")
                                                       : QStringLiteral("IDUS_PASSWORDDIALOG_HEADING_DEC"));
    connect(viewController.get(), &EnterPasswordWindowViewController::finished, this,
            [this] { window().closeWindow(); });
    connect(&window(), &FV2Window::shownOrHidden, viewController.get(), [this, dialog = viewController.get()] {
        if (window().isVisible())
            dialog->updateControls(); // the button box has made a default button of OK
        else
            dialog->forget();
    });
    // Some desktops draw a button for closing all the same.
    connect(&window(), &FV2Window::closeRefused, viewController.get(),
            &EnterPasswordWindowViewController::onPostponeButton);
    connect(&window(), &FV2Window::madeKey, viewController.get(), &EnterPasswordWindowViewController::onMadeKey);
    window().hideTitlebarButtons();
    window().setContentView(viewController->view());
    window().growWithContent();
    window().setWindowTitle(translated(QStringLiteral("IDUS_PASSWORDDIALOG_TITLE")));
    window().center();
}

void EnterPasswordWindowWindowController::postponeAndClose() {
    appModel.postponePasswordDialog(encrypting);
    window().closeWindow();
}

void EnterPasswordWindowWindowController::forget() {
    if (viewController)
        viewController->forget();
}

void EnterPasswordWindowWindowController::windowWillClose() {
    logTrace("EnterPasswordWindowWindowController.windowWillClose");
    viewController.reset();
    FV2PasswordWindowController::windowWillClose();
}

} // namespace fv2
