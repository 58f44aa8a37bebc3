// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/SessionBus.h"

#include "base/CountingSemaphore.h"

#include <QDBusConnection>

#include <atomic>
#include <memory>
#include <thread>

namespace fv2 {

namespace {

constexpr std::chrono::seconds kLongestConnect{1};

} // namespace

SessionBus connectedSessionBus() {
    struct Attempt {
        CountingSemaphore over{0};
        std::atomic<bool> connected = false;
    };
    const auto attempt = std::make_shared<Attempt>();
    std::thread thread([attempt] {
        attempt->connected = QDBusConnection::sessionBus().isConnected();
        attempt->over.signal();
    });
    if (!attempt->over.waitUntil(Deadline(kLongestConnect))) {
        thread.detach();
        return SessionBus::Silent;
    }
    thread.join();
    return attempt->connected ? SessionBus::Connected : SessionBus::None;
}

} // namespace fv2
