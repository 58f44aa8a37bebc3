// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/PeerPolicy.h"

#include <algorithm>
#include <sys/socket.h>
#include <unistd.h>

namespace fv2 {

PeerPolicy PeerPolicy::rootOrSelf() {
    static const uid_t self = ::getuid();
    return {0, self};
}

bool PeerPolicy::trusts(uid_t uid) const {
    return std::find(m_trusted.begin(), m_trusted.end(), uid) != m_trusted.end();
}

std::optional<uid_t> peerOf(int descriptor) {
    ucred peer{};
    socklen_t length = sizeof peer;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &length) != 0)
        return std::nullopt;
    return peer.uid;
}

} // namespace fv2
