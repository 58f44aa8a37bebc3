// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2UnixSignals.h"

#include "base/StopSignal.h"

#include <csignal>

namespace fv2 {

namespace {

const StopSignal& raisedBySignal() {
    static const StopSignal signal;
    return signal;
}

void onSignal(int number) {
    if (number != SIGPIPE)
        raisedBySignal().raise();
}

} // namespace

FV2UnixSignals::FV2UnixSignals() {
    static_cast<void>(raisedBySignal());
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
        ::sigaction(number, &action, nullptr);
}

void FV2UnixSignals::onTerminate(std::function<void()> terminate) {
    m_notifier.emplace(raisedBySignal().descriptor(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this, terminate = std::move(terminate)] {
        m_notifier->setEnabled(false);
        terminate();
    });
}

} // namespace fv2
