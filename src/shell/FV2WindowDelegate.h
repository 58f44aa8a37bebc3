// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "model/ports/FV2WindowRegistry.h"
#include "resources/FV2AppConfigModel.h"
#include "shell/FV2WindowController.h"
#include "shell/fv2WindowList.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

namespace fv2 {

//! Makes the windows' controllers; the registry itself knows no screen.
class FV2WindowFactory {
public:
    virtual ~FV2WindowFactory() = default;
    [[nodiscard]] virtual std::shared_ptr<FV2MainWindowController> makeMainWindow() = 0;
    //! Nothing where there is no such window.
    [[nodiscard]] virtual std::shared_ptr<FV2PasswordWindowController> makePasswordWindow(bool encrypting) = 0;
};

//! The one place where windows are opened, found, hidden, brought to front and forgotten: at most one of each kind. A
//! window is open from openWindow() until it closes, hidden ones too. Main thread only; dies before the models.
class FV2WindowDelegate final : public QObject, public FV2WindowRegistry {
    Q_OBJECT
public:
    FV2WindowDelegate(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel, FV2WindowFactory& factory);
    ~FV2WindowDelegate() override;

    //! Holds the model's update semaphore while it builds the window, so that nothing is pushed into half a screen.
    void openWindow(fv2Window kind, bool userInitiated) override;
    [[nodiscard]] bool canShow(fv2Window kind, bool userInitiated) const;
    [[nodiscard]] bool isOpen(fv2Window kind) const override { return registeredController(kind) != nullptr; }
    [[nodiscard]] std::shared_ptr<FV2WindowController> registeredController(fv2Window kind) const;
    [[nodiscard]] bool isAnyWindowMain() const;

    //! Brings every open window to front; whether there is any.
    bool showAll(bool byUser = true);
    void hideApplicationWindows();
    //! Lets the windows read the model anew and closes password windows that are no longer called for. Holds the
    //! model's update semaphore meanwhile.
    void stateChanged(const FV2AppState& state);
    //! The user has left the session or locked the screen.
    void forgetPasswords() const;
    //! At the agent's end.
    void closeAll();
    //! Gives every window, open from now on too, the colours of the appearance that the desktop asks for.
    void refreshAppearance();

    void selectProtectionStatusPage() override;
    //! On the front window: an alert on the one behind would block both, and nobody would see why.
    void showAlert(fv2Window kind, const FV2AlertContent& content, std::function<void()> onFirstButton) override;
    void confirmPostponement(fv2Window kind) override;

Q_SIGNALS:
    //! A window was opened, closed, shown or hidden.
    void windowsChanged();
    //! The first window of the run is about to be shown.
    void firstWindow();

private:
    [[nodiscard]] std::shared_ptr<FV2WindowController> controllerFor(fv2Window kind);
    std::shared_ptr<FV2WindowController> mainController();
    std::shared_ptr<FV2WindowController> passwordController(std::shared_ptr<FV2PasswordWindowController>& kept,
                                                            bool encrypting, const std::string& recycling);
    //! Whether a window was shown.
    bool showChecked(fv2Window kind, bool userInitiated);
    void chainToParent(FV2WindowController& child) const;
    void willClose(FV2WindowController& controller);
    void moveToFront(std::vector<FV2Alert> alerts, bool withKeyboard);
    void close(fv2Window kind);
    void closeUnneededPasswordWindows(fv2AppCommand action);

    FV2AppStateModel& appModel;
    FV2AppConfigModel& appConfigModel;
    FV2WindowFactory& m_factory;
    fv2WindowList wndList;
    std::shared_ptr<FV2MainWindowController> mainWindowController;
    std::shared_ptr<FV2PasswordWindowController> enterEncPasswordWindowController;
    std::shared_ptr<FV2PasswordWindowController> enterDecPasswordWindowController;
    bool m_anyWindowShown = false;
    bool m_closingAll = false;
};

} // namespace fv2
