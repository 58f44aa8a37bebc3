// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/CountingSemaphore.h"
#include "model/FV2DueAction.h"
#include "model/FV2JsonParserORM.h"
#include "model/FV2NotificationInbox.h"
#include "model/FV2NotificationListener.h"
#include "model/FV2PasswordHandOver.h"
#include "model/FV2PasswordPrompt.h"
#include "model/FV2ProxySync.h"
#include "model/FV2RedReport.h"
#include "model/FV2RefreshCycle.h"
#include "model/FV2UnpromptedRefresh.h"
#include "model/ports/FV2ApplicationDelegate.h"
#include "model/ports/FV2ModelPorts.h"
#include "model/ports/FV2WindowRegistry.h"

#include <memory>
#include <string>

namespace fv2 {

//! The one object that knows the agent's situation and asks the service for news; each of its jobs is done by a part of
//! its own. Lives for the whole run. Main thread only: workers and the listener get copies of what they need and hand
//! values back.
class FV2AppStateModel {
public:
    FV2AppStateModel(FV2ModelPorts ports, std::int64_t userId);

    //! Both must be set before the first refresh.
    void setAppDelegate(FV2ApplicationDelegate& appDelegate) { m_appDelegate = &appDelegate; }
    void setWndDelegate(FV2WindowRegistry* wndDelegate) { m_wndDelegate = wndDelegate; }

    [[nodiscard]] const FV2AppState& state() const { return m_state; }
    //! Whether a window that nobody asked for would disturb.
    [[nodiscard]] bool IsDNDMode() const;

    //! Starts the listener on the agent's own socket; once.
    void runBackgroundThread() { m_listener.start(); }
    //! Ends the listener and removes its socket; it can't be started again.
    void stopBackgroundThread() { m_listener.stop(); }

    //! Asks the service for a token and the status on a worker, then updates everything on the main thread. Returns at
    //! once. Refreshes of one source merge and are spaced; a merged one checks and alerts if any of them does. Service
    //! stands for a notification that the service has pushed.
    void syncCommsAsync(bool checkAction, fv2SyncSource source, bool alertOnFailure);

    //! Asks the service to synchronise with its management server; dropped while one is in flight. Returns at once.
    void syncProxyAsync(fv2SyncSource source, bool alertOnFailure) { m_proxySync.start(source, alertOnFailure); }

    //! Tells the service, on a worker, to stop its notifications, and asks it nothing by itself any more until the user
    //! comes back.
    void unsubscribeFromNotifications();
    //! The same as the agent's last word: ends all other exchanges first, takes 500 ms at most. From here on no result
    //! reaches the model any more.
    void unsubscribeAtExit();

    //! Whether the user can see a window, whose progress then moves more often.
    void setWatched(bool watched) { m_unprompted.setWatched(watched); }

    //! Shows the state; carries out the action that has become due when `checkAction` and the source allow it.
    void updateFromModel(bool checkAction, fv2SyncSource syncSource);

    //! Carries out what a status calls for or a command link says.
    void performAction(fv2AppCommand command, bool userInitiated);

    //! Shows an alert on an open window and returns at once. Nothing for NoError. When the user confirms
    //! that the password is typed later, the password window of that direction is told.
    void doAlert(fv2Window window, std::uint64_t errorCode, fv2Alert alert);

    //! Lets the password window come back after the time that the policy gives; not at all when that is none.
    void postponePasswordDialog(bool encrypt);

    [[nodiscard]] bool isPasswordPostponed() const { return m_prompt.isPostponed(); }

    //! Checks a password on a worker and, if it is right, hands it to the service on another. Takes it in any case.
    void submitPassword(std::string userName, SecretText password, FV2PasswordAsker asker) {
        m_handOver.submit(std::move(userName), std::move(password), std::move(asker));
    }

    //! Held while windows are updated and while one is opened.
    [[nodiscard]] CountingSemaphore& updateSemaphore() { return updateModelSemaphore; }

private:
    [[nodiscard]] FV2RefreshCycle::Events refreshEvents();
    [[nodiscard]] FV2ProxySync::Ports proxySyncPorts();
    [[nodiscard]] FV2PasswordPrompt::Ports promptPorts();
    [[nodiscard]] FV2PasswordHandOver::Ports handOverPorts();
    void finishRefresh(const FV2RefreshOrder& order, const DecodedStatus& status, bool counts);
    [[nodiscard]] FV2PasswordPrompt::Wish passwordWish(fv2Window kind) const;
    void alertOnMainWindow(const CommandResult& result);
    void sendUnsubscribe();
    [[nodiscard]] bool isMainWindowOpen() const { return m_wndDelegate->isOpen(fv2Window::Main); }

    FV2ModelPorts m_ports;
    FV2ApplicationDelegate* m_appDelegate = nullptr;
    FV2WindowRegistry* m_wndDelegate = nullptr;
    FV2AppState m_state;
    FV2JsonParserORM jsonParser;
    CountingSemaphore backgroundThreadSemaphore{1};
    CountingSemaphore updateModelSemaphore{1};
    CountingSemaphore backgroundSyncSemaphore{1}; //!< unused; one of the four semaphores
    std::shared_ptr<const char> m_alive = std::make_shared<const char>();
    const std::weak_ptr<const void> m_owner = m_alive; //!< copied on any thread
    FV2RefreshCycle m_refreshes;
    FV2UnpromptedRefresh m_unprompted;
    FV2DueAction m_dueAction;
    FV2RedReport m_redReport;
    FV2ProxySync m_proxySync;
    FV2PasswordPrompt m_prompt;
    FV2PasswordHandOver m_handOver;
    FV2NotificationInbox m_inbox;
    FV2NotificationListener m_listener;
};

} // namespace fv2
