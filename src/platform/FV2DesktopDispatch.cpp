// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DesktopDispatch.h"

namespace fv2 {

namespace {

//! Four refreshes that nobody waits for may hang: at start-up, two for notifications, one for the user's moves. One
//! more for a synchronisation and one for what the user does meanwhile.
constexpr std::size_t kWorkers = 6;

} // namespace

FV2DesktopDispatch::FV2DesktopDispatch()
    : m_notifier(m_mainQueue.descriptor(), QSocketNotifier::Read)
    , m_workers(kWorkers) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { m_mainQueue.drain(); });
}

bool FV2DesktopDispatch::finish(const Deadline& deadline) {
    m_notifier.setEnabled(false);
    return m_workers.finish(deadline);
}

} // namespace fv2
