// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <initializer_list>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace fv2 {

//! Which users may stand at the other end of a connection. The kernel's word for it is asked before the first byte is
//! sent or read; the path says nothing about who listens there.
class PeerPolicy {
public:
    PeerPolicy(std::initializer_list<uid_t> trusted)
        : m_trusted(trusted) {}

    //! The system's service or this user's own processes.
    static PeerPolicy rootOrSelf();
    static PeerPolicy rootOnly() { return {0}; }

    [[nodiscard]] bool trusts(uid_t uid) const;

private:
    std::vector<uid_t> m_trusted;
};

//! The user of the process that connected, or that called listen(); nothing when the kernel does not tell.
[[nodiscard]] std::optional<uid_t> peerOf(int descriptor);

} // namespace fv2
