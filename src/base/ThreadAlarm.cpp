// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/ThreadAlarm.h"

#include <csignal>
#include <ctime>
#include <mutex>
#include <optional>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr long kPeriod = 20'000'000; //!< nanoseconds

//! The timer of one thread, made once: setting it is cheaper than making it.
class Timer {
public:
    Timer() {
        static std::once_flag once;
        std::call_once(once, [] {
            struct sigaction action {};
            action.sa_handler = [](int) {}; // without SA_RESTART
            ::sigaction(SIGRTMIN, &action, nullptr);
        });
        // Whoever started the program may have left it blocked.
        sigset_t alarm{};
        ::sigemptyset(&alarm);
        ::sigaddset(&alarm, SIGRTMIN);
        ::pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
        sigevent event{};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = SIGRTMIN;
        event._sigev_un._tid = ::gettid();
        timer_t timer = nullptr;
        if (::timer_create(CLOCK_MONOTONIC, &event, &timer) == 0)
            m_timer = timer;
    }
    ~Timer() {
        if (m_timer)
            ::timer_delete(*m_timer);
    }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void begin() {
        if (m_alarms++ == 0)
            set(kPeriod);
    }
    void end() {
        if (--m_alarms == 0)
            set(0);
    }

private:
    void set(long nanoseconds) const {
        const itimerspec when{{0, nanoseconds}, {0, nanoseconds}};
        if (m_timer)
            ::timer_settime(*m_timer, 0, &when, nullptr);
    }

    std::optional<timer_t> m_timer;
    int m_alarms = 0;
};

Timer& timerOfThread() {
    thread_local Timer timer;
    return timer;
}

} // namespace

ThreadAlarm::ThreadAlarm() {
    timerOfThread().begin();
}

ThreadAlarm::~ThreadAlarm() {
    timerOfThread().end();
}

} // namespace fv2
