// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2NotificationCommand.h"
#include "model/FV2RefreshGate.h"
#include "model/ports/FV2Dispatch.h"

#include <atomic>
#include <functional>
#include <memory>

namespace fv2 {

//! What the messages on the agent's own socket set off. Main hears of the first notification only, until the refresh
//! that it asks for begins, and of the first wish to see the window until it is shown.
class FV2NotificationInbox {
public:
    struct Events {
        //! Listener's thread: starts a refresh on a worker at once; false, and nothing has happened, where it would
        //! have to wait.
        std::function<bool()> tryToStartRefresh;
        //! Main thread.
        std::function<void()> requestRefresh;
        std::function<void()> showMainWindow;
    };

    //! Main thread hears nothing any more once `owner` has died.
    FV2NotificationInbox(FV2Dispatch& dispatch, FV2TimerService& timers, std::weak_ptr<const void> owner,
                         Events events);

    //! Listener's thread.
    void received(fv2JsonCommand command);
    //! Any thread: a refresh that a notification asked for begins.
    void refreshBegins() { m_refreshIsWanted = false; }

private:
    void show();

    FV2Dispatch& m_dispatch;
    const std::weak_ptr<const void> m_owner;
    const Events m_events;
    FV2RefreshGate m_showGate;
    std::atomic<bool> m_refreshIsWanted = false;
    std::atomic<bool> m_showIsWanted = false;
};

} // namespace fv2
