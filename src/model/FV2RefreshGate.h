// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Ports.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace fv2 {

//! Keeps a storm of notifications from becoming a storm of exchanges: the first one starts a refresh at once, the ones
//! that come while a refresh waits to start merge into it, and starts are spaced. The last notification is always
//! followed by a refresh that starts after it. Main thread only.
class FV2RefreshGate {
public:
    static constexpr std::chrono::milliseconds spacing{25};

    //! `start` begins one refresh, which reports its end to finished(). At most `maxRunning` run at a time: a few may
    //! hang without taking all workers away from the user's clicks.
    FV2RefreshGate(FV2TimerService& timers, int maxRunning, std::function<void()> start)
        : m_timers(timers)
        , m_maxRunning(maxRunning)
        , m_start(std::move(start)) {}

    void request();
    void finished();

private:
    void startWhenAllowed();

    FV2TimerService& m_timers;
    const int m_maxRunning;
    std::function<void()> m_start;
    bool m_waiting = false;
    int m_running = 0;
    std::optional<std::chrono::steady_clock::time_point> m_lastStart;
    std::unique_ptr<FV2Timer> m_timer;
};

} // namespace fv2
