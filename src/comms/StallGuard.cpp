// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/StallGuard.h"

#include <atomic>
#include <sys/socket.h>

namespace fv2 {

namespace {

#ifndef SO_PASSRIGHTS
constexpr int SO_PASSRIGHTS = 83;
#endif

std::atomic<bool> descriptorsAreRefused = false;

} // namespace

StallGuard::StallGuard() {
    if (!descriptorsAreRefused)
        m_alarm.emplace();
}

void StallGuard::refuseDescriptors(int socket) {
    const int passed = 0;
    descriptorsAreRefused = ::setsockopt(socket, SOL_SOCKET, SO_PASSRIGHTS, &passed, sizeof passed) == 0;
}

} // namespace fv2
