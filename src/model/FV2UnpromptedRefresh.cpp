// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2UnpromptedRefresh.h"

#include <utility>

namespace fv2 {

namespace {

//! How often the status is asked for while no notification can be expected: the service can't be reached or gives no
//! token, and a restarted one does not know us, or somebody else holds our socket's path.
constexpr std::chrono::seconds kUnpromptedRefresh{60};
//! And otherwise: a service that ended without a word, or came back without its memory, is noticed in the end.
constexpr std::chrono::minutes kHeartbeat{10};
//! While the service works on the disk, whether or not it tells how far it is: as long as somebody watches, and
//! otherwise, for the tray's tooltip and the desktop's launcher.
constexpr std::chrono::seconds kWatchedProgress{5};
constexpr std::chrono::seconds kProgress{60};

} // namespace

void FV2UnpromptedRefresh::ask(bool alertOnFailure) {
    if (m_isOn)
        m_refresh(alertOnFailure);
}

void FV2UnpromptedRefresh::askLater(bool serviceKnowsUs) {
    if (!m_isOn)
        return;
    m_timer = m_timers.after(pause(serviceKnowsUs), [this] {
        m_timer.reset();
        m_beforeTimed();
        ask(false);
    });
}

std::chrono::milliseconds FV2UnpromptedRefresh::pause(bool serviceKnowsUs) const {
    if (m_isWorking)
        return m_isWatched ? kWatchedProgress : kProgress;
    return serviceKnowsUs && m_bound ? kHeartbeat : kUnpromptedRefresh;
}

void FV2UnpromptedRefresh::setWatched(bool watched) {
    if (std::exchange(m_isWatched, watched) != watched && watched && m_isWorking)
        ask(false);
}

void FV2UnpromptedRefresh::setBound(bool bound) {
    if (std::exchange(m_bound, bound) == bound)
        return;
    if (bound)
        ask(false); // for what was missed
    else
        askLater(false);
}

void FV2UnpromptedRefresh::stop() {
    m_isOn = false;
    m_timer.reset();
}

} // namespace fv2
