// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DesktopDispatch.h"

#include "logging/SystemReport.h"

#include <utility>

namespace fv2 {

namespace {

//! Five refreshes may hang: at start-up, two for notifications, one for the user's moves, one that the user asked for.
//! One more for a synchronisation and one for a password.
constexpr std::size_t kWorkers = 7;

constexpr std::chrono::milliseconds kDrainAgain{50};
constexpr std::chrono::seconds kMakeWorkersAgain{1};

} // namespace

FV2DesktopDispatch::FV2DesktopDispatch()
    : m_workers(kWorkers) {
    const auto drain = [this] { m_mainQueue.drain(); };
    if (m_mainQueue.descriptor() >= 0) {
        m_notifier.emplace(m_mainQueue.descriptor(), QSocketNotifier::Read);
        QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, drain);
    } else {
        QObject::connect(&m_drainAgain, &QTimer::timeout, &m_drainAgain, drain);
        m_drainAgain.start(kDrainAgain);
    }
    m_makeWorkersAgain.setSingleShot(true);
    QObject::connect(&m_makeWorkersAgain, &QTimer::timeout, &m_makeWorkersAgain, [this] {
        if (!m_workers.makeThreads())
            makeWorkersLater();
    });
}

void FV2DesktopDispatch::toWorker(std::function<void()> job) {
    if (!m_workers.post(std::move(job)))
        toMain([this] { makeWorkersLater(); });
}

void FV2DesktopDispatch::makeWorkersLater() {
    reportOnce("no worker", "the service is not asked: the system has no thread left; tried again every second");
    m_makeWorkersAgain.start(kMakeWorkersAgain);
}

bool FV2DesktopDispatch::finish(const Deadline& deadline) {
    m_notifier.reset();
    m_drainAgain.stop();
    m_makeWorkersAgain.stop();
    return m_workers.finish(deadline);
}

} // namespace fv2
