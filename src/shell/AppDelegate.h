// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "model/ports/FV2ApplicationDelegate.h"
#include "platform/FV2TrayWatcher.h"
#include "shell/FV2StatusMenu.h"
#include "shell/FV2TrayItem.h"
#include "shell/FV2WindowDelegate.h"

#include <QObject>

#include <functional>
#include <optional>

namespace fv2 {

//! Starts the agent's parts in order, follows the user's session and the tray's menu, and ends everything in order.
//! Main thread only.
class AppDelegate final : public QObject, public FV2ApplicationDelegate {
    Q_OBJECT
public:
    //! What is lent to the delegate and outlives it.
    struct Parts {
        FV2AppStateModel& appModel;
        FV2WindowDelegate& wndDelegate;
        FV2TrayItem& menuBarStatusItem;
        FV2StatusMenu& menu;
        std::function<void()> quit; //!< ends the event loop, which reports it to applicationWillTerminate()
    };

    explicit AppDelegate(Parts parts);

    //! The first lines of every run's log.
    static void logBanner();

    //! `launchedByFileManager`: a user started the program by hand and wants to see it.
    void applicationDidFinishLaunching(bool launchedByFileManager);
    //! The user starts the agent again while it runs. Always false: there is nothing else to do.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    //! The user's login session is in front again.
    void sessionBecameActive();
    //! Another user's session is in front.
    void sessionResigned();
    void exitApplication();
    //! Says goodbye to the service and stops the listener, whoever has ended the event loop. The end takes under a
    //! second.
    void applicationWillTerminate();

    //! Shows the state in the tray item, its menu and the windows, in this order.
    void stateChanged(const FV2AppState& state) override;
    void proxySyncSucceeded() override { updateMenu(); }
    void userSyncFailed() override { Q_EMIT syncOfUserFailed(); }
    void passwordWindowKeptShut(fv2Window kind) override { Q_EMIT passwordKeptShut(kind); }

    void menuShowMainWindow() override;
    void menuHideMainWindow();
    void menuProxySync();

    //! The user wants a password's window, whatever hides it.
    void enterPassword(fv2AppCommand command);

Q_SIGNALS:
    //! What has changed is shown.
    void stateShown(const FV2AppState& state);
    void userSynchronises();
    void syncOfUserFailed();
    void passwordKeptShut(fv2Window kind);
    //! Some time after the start there is no tray, or one comes after that was told.
    void trayMissing(bool missing);

private:
    void showIcon(const FV2AppState& state);
    void updateMenu();
    void showMainWindow(bool byUser);
    void onMenuBarStatusItemClicked();
    void handleTerminate();

    Parts m_parts;
    std::optional<FV2TrayWatcher> m_trayWatcher;
    bool terminating = false;
};

} // namespace fv2
