// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2WindowDelegate.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowRules.h"

#include <algorithm>

namespace fv2 {

FV2WindowDelegate::FV2WindowDelegate(FV2AppStateModel& model, FV2AppConfigModel& configModel, FV2WindowFactory& factory)
    : appModel(model)
    , appConfigModel(configModel)
    , m_factory(factory) {
}

FV2WindowDelegate::~FV2WindowDelegate() = default;

void FV2WindowDelegate::refreshAppearance() {
    appConfigModel.refreshAppearance();
    for (std::size_t position = 1; position <= wndList.count(); ++position)
        if (const auto controller = wndList.controllerAt(position))
            controller->setAppearance(appConfigModel.isDarkMode());
}

bool FV2WindowDelegate::canShow(fv2Window kind, bool userInitiated) const {
    const bool allowed = mayOpen(kind, userInitiated, wndList, appModel);
    logUi("canShow() returning ", allowed);
    return allowed;
}

void FV2WindowDelegate::openWindow(fv2Window kind, bool userInitiated) {
    logTrace("Open Window");
    appConfigModel.refreshAppearance();
    logTrace("updateModelSempahore - wait (in open window)");
    bool shown = false;
    {
        const SemaphoreHold hold(appModel.updateSemaphore());
        logTrace("updateModelSempahore - waited (in open window)");
        shown = showChecked(kind, userInitiated);
        logTrace("updateModelSempahore - signal (in open window)");
    }
    if (!shown && userInitiated)
        if (FV2Window* const front = wndList.windowAt(wndList.count()))
            front->makeKeyAndOrderFront();
    Q_EMIT windowsChanged();
}

bool FV2WindowDelegate::showChecked(fv2Window kind, bool userInitiated) {
    if (!canShow(kind, userInitiated))
        return false;
    const auto controller = controllerFor(kind);
    if (controller == nullptr)
        return false;
    if (!std::exchange(m_anyWindowShown, true))
        Q_EMIT firstWindow();
    connect(controller.get(), &FV2WindowController::closing, this, &FV2WindowDelegate::willClose, Qt::UniqueConnection);
    connect(&controller->window(), &FV2Window::shownOrHidden, this, &FV2WindowDelegate::windowsChanged,
            Qt::UniqueConnection);
    controller->setAppearance(appConfigModel.isDarkMode());
    // Before it is shown: X11's window managers learn only then who belongs to whom.
    if (wndList.isModalAt(wndList.addWindow(kind, controller)))
        chainToParent(*controller);
    controller->showWindow(userInitiated);
    return true;
}

std::shared_ptr<FV2WindowController> FV2WindowDelegate::controllerFor(fv2Window kind) {
    switch (kind) {
    case fv2Window::Main:
        return mainController();
    case fv2Window::Password_Encrypt:
        return passwordController(enterEncPasswordWindowController, true, "recycling enc pw");
    case fv2Window::Password_Decrypt:
        return passwordController(enterDecPasswordWindowController, false, "recycling dec pw");
    case fv2Window::None:
        break;
    }
    return nullptr;
}

std::shared_ptr<FV2WindowController> FV2WindowDelegate::mainController() {
    if (mainWindowController) {
        logTrace("recycling main wc");
    } else {
        logTrace("new main wc making..");
        mainWindowController = m_factory.makeMainWindow();
        if (mainWindowController)
            logTrace("new main wc is ", description(*mainWindowController));
    }
    return mainWindowController;
}

std::shared_ptr<FV2WindowController>
FV2WindowDelegate::passwordController(std::shared_ptr<FV2PasswordWindowController>& kept, bool encrypting,
                                      const std::string& recycling) {
    if (kept)
        logTrace(recycling);
    else
        kept = m_factory.makePasswordWindow(encrypting);
    return kept;
}

//! The window registered just before stays behind the new one and can't be closed under it.
void FV2WindowDelegate::chainToParent(FV2WindowController& child) const {
    FV2Window* const parent = wndList.windowAt(wndList.count() - 1);
    if (parent == nullptr)
        return;
    parent->addChildWindow(child.window());
    parent->setCloseEnabled(false);
}

void FV2WindowDelegate::willClose(FV2WindowController& controller) {
    logUi("wndDelegate willClose in");
    if (const std::size_t position = wndList.indexOfController(controller); position != 0) {
        const bool hadKeyboard = controller.window().hasKeyboard();
        std::vector<FV2Alert> alerts = controller.window().takeAlerts();
        // A child is opened after its parent, and nearly always closed as the last.
        if (wndList.count() >= 2)
            if (FV2Window* const parent = wndList.windowAt(wndList.count() - 1)) {
                FV2Window::removeChildWindow(controller.window());
                parent->setCloseEnabled(true);
            }
        switch (wndList.removeWindow(position)) {
        case fv2Window::Main:
            mainWindowController.reset();
            break;
        case fv2Window::Password_Encrypt:
            enterEncPasswordWindowController.reset();
            break;
        case fv2Window::Password_Decrypt:
            enterDecPasswordWindowController.reset();
            break;
        case fv2Window::None:
            break;
        }
        moveToFront(std::move(alerts), hadKeyboard);
    }
    logUi("wndDelegate willClose out");
    Q_EMIT windowsChanged();
}

//! A closed window's alerts about another window still hold.
void FV2WindowDelegate::moveToFront(std::vector<FV2Alert> alerts, bool withKeyboard) {
    FV2Window* const front = wndList.windowAt(wndList.count());
    std::erase_if(alerts, [this](const FV2Alert& alert) { return !isOpen(alert.about); });
    if (front == nullptr || alerts.empty() || m_closingAll)
        return;
    for (FV2Alert& alert : alerts)
        front->beginSheet(std::move(alert));
    if (withKeyboard)
        front->makeKeyAndOrderFront();
}

std::shared_ptr<FV2WindowController> FV2WindowDelegate::registeredController(fv2Window kind) const {
    return wndList.controllerAt(wndList.indexOfWindow(kind));
}

bool FV2WindowDelegate::isAnyWindowMain() const {
    const auto windows = wndList.windows();
    return std::any_of(windows.begin(), windows.end(), [](const FV2Window* window) { return window->isMainWindow(); });
}

bool FV2WindowDelegate::showAll(bool byUser) {
    return wndList.showAll(byUser);
}

void FV2WindowDelegate::close(fv2Window kind) {
    if (const auto controller = registeredController(kind))
        controller->window().closeWindow();
}

void FV2WindowDelegate::hideApplicationWindows() {
    if (wndList.count() == 1 && isOpen(fv2Window::Main) && isAnyWindowMain()) {
        close(fv2Window::Main);
        return;
    }
    wndList.orderOutAll();
}

void FV2WindowDelegate::stateChanged(const FV2AppState& state) {
    logRelease("updateModelSempahore - wait (update from model)");
    const SemaphoreHold hold(appModel.updateSemaphore());
    logRelease("updateModelSempahore - waited (update from model)");
    if (const auto main = registeredController(fv2Window::Main)) {
        logRelease("updateModelSempahore - using ", description(*main));
        main->updateFromModel();
    }
    closeUnneededPasswordWindows(state.lastActionStored);
    logRelease("updateModelSempahore - signal (update from model)");
}

void FV2WindowDelegate::closeUnneededPasswordWindows(fv2AppCommand action) {
    if (action != fv2AppCommand::EnterEncPassword)
        close(fv2Window::Password_Encrypt);
    if (action != fv2AppCommand::EnterDecPassword)
        close(fv2Window::Password_Decrypt);
}

void FV2WindowDelegate::forgetPasswords() const {
    for (const auto& controller : {enterEncPasswordWindowController, enterDecPasswordWindowController})
        if (controller)
            controller->forget();
}

void FV2WindowDelegate::closeAll() {
    m_closingAll = true;
    for (const fv2Window kind : {fv2Window::Password_Encrypt, fv2Window::Password_Decrypt, fv2Window::Main})
        close(kind);
    m_closingAll = false;
}

void FV2WindowDelegate::selectProtectionStatusPage() {
    if (mainWindowController)
        mainWindowController->selectProtectionStatusPage();
}

void FV2WindowDelegate::showAlert(fv2Window kind, const FV2AlertContent& content, std::function<void()> onFirstButton) {
    FV2Window* const front = wndList.windowAt(wndList.count());
    if (front != nullptr && isOpen(kind))
        front->beginSheet({kind, content, std::move(onFirstButton)});
}

void FV2WindowDelegate::confirmPostponement(fv2Window kind) {
    const auto controller =
        kind == fv2Window::Password_Decrypt ? enterDecPasswordWindowController : enterEncPasswordWindowController;
    if (controller)
        controller->postponeAndClose();
}

} // namespace fv2
