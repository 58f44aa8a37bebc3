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

} // namespace

void FV2UnpromptedRefresh::ask(bool alertOnFailure) {
    if (m_isOn)
        m_refresh(alertOnFailure);
}

void FV2UnpromptedRefresh::askLater(bool serviceKnowsUs) {
    if (!m_isOn)
        return;
    m_timer = m_timers.after(serviceKnowsUs && m_bound ? kHeartbeat : kUnpromptedRefresh, [this] {
        m_timer.reset();
        m_beforeTimed();
        ask(false);
    });
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
