// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2RefreshGate.h"

namespace fv2 {

void FV2RefreshGate::request() {
    if (m_waiting)
        return;
    m_waiting = true;
    startWhenAllowed();
}

void FV2RefreshGate::finished() {
    --m_running;
    if (m_waiting && !m_timer)
        startWhenAllowed();
}

void FV2RefreshGate::startWhenAllowed() {
    if (m_running >= m_maxRunning)
        return;
    const auto now = m_timers.now();
    if (m_lastStart && now - *m_lastStart < spacing) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*m_lastStart + spacing - now);
        m_timer = m_timers.after(left, [this] {
            m_timer.reset();
            startWhenAllowed();
        });
        return;
    }
    m_waiting = false;
    m_lastStart = now;
    ++m_running;
    m_start();
}

} // namespace fv2
