// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2UnixSignals.h"

#include <csignal>
#include <cstdlib>
#include <sys/time.h>
#include <unistd.h>

namespace fv2 {

namespace {

const StopSignal* raisedByHandler = nullptr;

//! More than the end takes with a silent service or PAM, and under the promised second.
constexpr suseconds_t kLongestEnd = 900'000; // microseconds

void onSignal(int number) {
    if (number == SIGPIPE)
        return;
    raisedByHandler->raise();
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const itimerval end{{0, 0}, {0, kLongestEnd}};
    ::setitimer(ITIMER_REAL, &end, nullptr);
#endif
}

//! A stopped bus or X server blocks main before, in or after its event loop.
void onLongestEnd(int /*number*/) {
    ::_exit(EXIT_FAILURE);
}

} // namespace

std::shared_ptr<const StopSignal> FV2UnixSignals::raised() {
    static const auto signal = std::make_shared<const StopSignal>();
    return signal;
}

FV2UnixSignals::FV2UnixSignals() {
    raisedByHandler = raised().get();
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
        ::sigaction(number, &action, nullptr);
    action.sa_handler = onLongestEnd;
    ::sigaction(SIGALRM, &action, nullptr);
}

void FV2UnixSignals::onTerminate(std::function<void()> terminate) {
    m_notifier.emplace(raised()->descriptor(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this, terminate = std::move(terminate)] {
        m_notifier->setEnabled(false);
        terminate();
    });
}

} // namespace fv2
