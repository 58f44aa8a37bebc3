// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2RefreshGate.h"

#include <utility>

namespace fv2 {

void FV2RefreshGate::request() {
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_waiting, true))
            return;
    }
    startWhenAllowed();
}

void FV2RefreshGate::finished() {
    {
        const std::lock_guard lock(m_mutex);
        --m_running;
        if (!m_waiting)
            return;
    }
    if (!m_timer)
        startWhenAllowed();
}

bool FV2RefreshGate::tryToStart() {
    const std::lock_guard lock(m_mutex);
    const auto now = m_timers.now();
    if (m_waiting || m_running >= m_maxRunning || (m_lastStart && now - *m_lastStart < spacing))
        return false;
    m_lastStart = now;
    ++m_running;
    return true;
}

void FV2RefreshGate::startWhenAllowed() {
    std::chrono::milliseconds left{0};
    {
        const std::lock_guard lock(m_mutex);
        if (m_running >= m_maxRunning)
            return;
        const auto now = m_timers.now();
        if (m_lastStart)
            left = std::chrono::ceil<std::chrono::milliseconds>(*m_lastStart + spacing - now);
        if (left.count() <= 0) {
            m_waiting = false;
            m_lastStart = now;
            ++m_running;
        }
    }
    if (left.count() > 0)
        m_timer = m_timers.after(left, [this] {
            m_timer.reset();
            startWhenAllowed();
        });
    else
        m_start();
}

} // namespace fv2
