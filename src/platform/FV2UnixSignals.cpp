// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2UnixSignals.h"

#include <csignal>

namespace fv2 {

namespace {

const StopSignal* raisedByHandler = nullptr;

void onSignal(int number) {
    if (number != SIGPIPE)
        raisedByHandler->raise();
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
}

void FV2UnixSignals::onTerminate(std::function<void()> terminate) {
    m_notifier.emplace(raised()->descriptor(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this, terminate = std::move(terminate)] {
        m_notifier->setEnabled(false);
        terminate();
    });
}

} // namespace fv2
