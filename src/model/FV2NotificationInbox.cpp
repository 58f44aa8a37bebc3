// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2NotificationInbox.h"

#include "logging/FV2Logging.h"

#include <utility>

namespace fv2 {

FV2NotificationInbox::FV2NotificationInbox(FV2Dispatch& dispatch, FV2TimerService& timers,
                                           std::weak_ptr<const void> owner, Events events)
    : m_dispatch(dispatch)
    , m_owner(std::move(owner))
    , m_events(std::move(events))
    , m_showGate(timers, 1, [this] { show(); }) {
}

void FV2NotificationInbox::received(fv2JsonCommand command) {
    if (command == fv2JsonCommand::Show) {
        if (!m_showIsWanted.exchange(true))
            m_dispatch.toMain(whileAlive(m_owner, [this] { m_showGate.request(); }));
    } else if (!m_refreshIsWanted.exchange(true)) {
        // A worker can begin while main is still waking up.
        const bool started = m_events.tryToStartRefresh();
        m_dispatch.toMain(whileAlive(m_owner, [this, started] {
            logRelease("syncCommsAsync() in.");
            if (!started)
                m_events.requestRefresh();
            logRelease("syncCommsAsync() out.");
        }));
    }
}

void FV2NotificationInbox::show() {
    m_showIsWanted = false;
    m_events.showMainWindow();
    m_showGate.finished();
}

} // namespace fv2
