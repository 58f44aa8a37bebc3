// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ports/FV2TimerService.h"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace fv2 {

//! Limits refreshes in a storm of notifications: the first one starts a refresh at once, later ones merge into a
//! refresh that waits to start, and starts are spaced. The last notification is always followed by a refresh that
//! starts after it. Main thread only, but for tryToStart().
class FV2RefreshGate {
public:
    static constexpr std::chrono::milliseconds spacing{25};

    //! `start` begins one refresh, which reports its end to finished(). At most `maxRunning` run at a time: a few may
    //! hang and still leave workers to the user's clicks.
    FV2RefreshGate(FV2TimerService& timers, int maxRunning, std::function<void()> start)
        : m_timers(timers)
        , m_maxRunning(maxRunning)
        , m_start(std::move(start)) {}

    void request();
    void finished();

    //! Any thread. Counts a refresh as started when one may start at this moment; the caller starts it. Otherwise
    //! nothing has happened, and request() has to be called.
    [[nodiscard]] bool tryToStart();

private:
    void startWhenAllowed();

    FV2TimerService& m_timers;
    const int m_maxRunning;
    std::function<void()> m_start;
    std::mutex m_mutex; //!< guards all but the timer
    bool m_waiting = false;
    int m_running = 0;
    std::optional<std::chrono::steady_clock::time_point> m_lastStart;
    std::unique_ptr<FV2Timer> m_timer;
};

} // namespace fv2
