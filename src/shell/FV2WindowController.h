// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "shell/FV2Window.h"

#include <QObject>

#include <memory>
#include <string>

namespace fv2 {

//! What objects call themselves in log lines: class and address.
[[nodiscard]] std::string description(const QObject& object);

//! Owns one window and what is in it. Kept by the registry from opening to closing. Main thread only.
class FV2WindowController : public QObject {
    Q_OBJECT
public:
    FV2WindowController(FV2AppStateModel& appModel, std::unique_ptr<FV2Window> window);

    [[nodiscard]] FV2Window& window() const { return *m_window; }
    //! What the desktop adds above the content, in device-independent pixels; 0 while the window has no frame.
    [[nodiscard]] int titlebarHeight() const;

    //! In front with the keyboard when the user asked for the window, otherwise without taking the keyboard.
    virtual void showWindow(bool userInitiated);
    //! Reads the model anew.
    virtual void updateFromModel() {}
    //! Takes the colours of the current appearance.
    void setAppearance(bool dark);

Q_SIGNALS:
    //! The window closes; this object dies soon.
    void closing(fv2::FV2WindowController& controller);

protected:
    //! Runs while the window closes. Overriders hand on to this one last.
    virtual void windowWillClose();

    FV2AppStateModel& appModel;

private:
    std::unique_ptr<FV2Window> m_window;
};

//! The main window as the registry sees it.
class FV2MainWindowController : public FV2WindowController {
    Q_OBJECT
public:
    using FV2WindowController::FV2WindowController;
    virtual void selectProtectionStatusPage() = 0;
};

//! A password window as the registry sees it.
class FV2PasswordWindowController : public FV2WindowController {
    Q_OBJECT
public:
    using FV2WindowController::FV2WindowController;
    //! The user has confirmed that the password is typed later: notes when to ask again and closes.
    virtual void postponeAndClose() = 0;
    //! Another person may sit there now: empties the field and waits for the user to return to it.
    virtual void forget() = 0;
};

//! Makes a controller that outlives the event in which its last owner lets go of it.
template <class Controller, class... Arguments>
std::shared_ptr<Controller> makeController(Arguments&&... arguments) {
    return {new Controller(std::forward<Arguments>(arguments)...), [](Controller* gone) { gone->deleteLater(); }};
}

} // namespace fv2
