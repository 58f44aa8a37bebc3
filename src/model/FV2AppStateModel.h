// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/CountingSemaphore.h"
#include "model/FV2AppState.h"
#include "model/FV2JsonParserORM.h"
#include "model/FV2ModelPorts.h"
#include "model/FV2NotificationListener.h"
#include "model/FV2PasswordPrompt.h"
#include "model/FV2RefreshCycle.h"
#include "model/FV2RefreshGate.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace fv2 {

//! The one object that knows the agent's situation and asks the service for news. Lives for the whole run. Main thread
//! only: workers and the listener get copies of what they need and hand values back.
class FV2AppStateModel {
public:
    using Ports = FV2ModelPorts;

    FV2AppStateModel(Ports ports, std::int64_t userId);
    ~FV2AppStateModel();
    FV2AppStateModel(const FV2AppStateModel&) = delete;
    FV2AppStateModel& operator=(const FV2AppStateModel&) = delete;

    //! Must be set before the first refresh.
    void setAppDelegate(FV2ApplicationDelegate& appDelegate) { m_appDelegate = &appDelegate; }
    //! Without a registry no window is ever open.
    void setWndDelegate(FV2WindowRegistry* wndDelegate) { m_wndDelegate = wndDelegate; }

    [[nodiscard]] const FV2AppState& state() const { return m_state; }

    //! Whether a window that nobody asked for would disturb.
    [[nodiscard]] bool IsDNDMode() const;

    //! Starts the listener on the agent's own socket; once.
    void runBackgroundThread();
    //! Ends the listener and removes its socket; it can't be started again.
    void stopBackgroundThread();

    //! Asks the service for a token and the status on a worker, then updates everything on the main thread. Returns at
    //! once. Refreshes of one source merge and are spaced; a merged one checks and alerts if any of them does. Service
    //! stands for a notification that the service has pushed.
    void syncCommsAsync(bool checkAction, fv2SyncSource source, bool alertOnFailure);

    //! Asks the service to synchronise with its management server; dropped while one is in flight. Returns at once.
    void syncProxyAsync(fv2SyncSource source, bool alertOnFailure);

    //! Tells the service, on a worker, to stop its notifications, and asks it nothing by itself any more until the user
    //! comes back.
    void unsubscribeFromNotifications();
    //! The same as the agent's last word: ends all other exchanges first, takes 500 ms at most. From here on no result
    //! reaches the model any more.
    void unsubscribeAtExit();

    //! Pushes the state into the tray item and the windows; carries out the action that has become due when
    //! `checkAction` and the source allow it.
    void updateFromModel(bool checkAction, fv2SyncSource syncSource);

    //! Carries out what a status calls for or a command link says.
    void performAction(fv2AppCommand command, bool userInitiated);

    //! Shows an alert on an open window and returns at once. Nothing for NoError. When the user confirms
    //! that the password is typed later, the password window of that direction is told.
    void doAlert(fv2Window window, std::uint64_t errorCode, fv2Alert alert);

    //! Lets the password window come back after the time that the policy gives; not at all when that is none.
    void postponePasswordDialog(bool encrypt);

    //! Checks a password of this computer on a worker; `done` gets the result unless the model has gone by then. While
    //! an earlier check has not ended no other one begins, as each may keep its worker for ever: then the password is
    //! wiped and `done` runs before the return.
    void verifyPassword(const std::string& userName, std::shared_ptr<SecretText> password,
                        std::function<void(fv2PasswordCheck)> done);
    //! Hands the user's credentials to the service on a worker and wipes the password; `done` gets the result unless
    //! the model has gone by then. Without a token nothing is sent, and `done` runs before the return.
    void setUserCredentials(const std::string& userName, std::shared_ptr<SecretText> password,
                            std::function<void(const CommandResult&)> done);

    //! Held while windows are updated and while one is opened.
    [[nodiscard]] CountingSemaphore& updateSemaphore() { return updateModelSemaphore; }

private:
    [[nodiscard]] FV2RefreshCycle::Events refreshEvents();
    [[nodiscard]] FV2PasswordPrompt::Ports promptPorts();
    void finishRefresh(const FV2RefreshOrder& order, const DecodedStatus& status, bool counts);
    void refreshUnprompted(bool alertOnFailure);
    void openPasswordWindow(fv2Window kind, bool userInitiated);
    [[nodiscard]] FV2PasswordPrompt::Wish passwordWish(fv2Window kind) const;
    void syncProxyUnasked();
    void finishProxySync(fv2SyncSource source, bool alertOnFailure, const CommandResult& result);
    [[nodiscard]] fv2SyncSource effectiveSource(const FV2RefreshOrder& order);
    void updateWindows();
    void onNotification(fv2JsonCommand command);
    void onBound(bool bound);
    //! Soon when no notification can be expected, as after an exchange that failed; otherwise late.
    void scheduleUnpromptedRefresh(bool serviceAnswers);
    void sendUnsubscribe();
    [[nodiscard]] bool isMainWindowOpen() const;
    [[nodiscard]] std::function<void()> guarded(std::function<void()> job) const;

    Ports m_ports;
    FV2ApplicationDelegate* m_appDelegate = nullptr;
    FV2WindowRegistry* m_wndDelegate = nullptr;
    FV2AppState m_state;
    FV2JsonParserORM jsonParser;

    CountingSemaphore backgroundThreadSemaphore{1};
    CountingSemaphore updateModelSemaphore{1};
    CountingSemaphore proxySyncSemaphore{1};
    CountingSemaphore backgroundSyncSemaphore{1}; //!< stands with the others; nothing waits on it

    std::shared_ptr<const char> m_alive = std::make_shared<const char>();
    const std::weak_ptr<const void> m_owner = m_alive; //!< copied on any thread
    FV2RefreshCycle m_refreshes;
    FV2RefreshGate m_showGate;
    FV2PasswordPrompt m_prompt;
    std::atomic<bool> m_refreshIsWanted = false;
    std::atomic<bool> m_showIsWanted = false;
    bool m_startupIsUnderWay = false;
    bool m_notificationsArrive = true;
    bool m_wantsNotifications = true;
    bool m_isCheckingPassword = false;
    std::unique_ptr<FV2Timer> m_unpromptedRefresh;
    std::optional<std::chrono::steady_clock::time_point> m_lastUnaskedSync;
    std::unique_ptr<FV2Timer> m_nextUnaskedSync;

    FV2NotificationListener m_listener;
};

} // namespace fv2
