// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/UniqueFd.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <sys/un.h>

namespace fv2 {

//! What is at a path where somebody should listen, checked before anything is sent. It is kept open, so that we connect
//! to what was checked even if the path is replaced.
class ListeningPlace {
public:
    explicit ListeningPlace(const std::string& path);

    //! The owner of what is there, of a link itself and not of its target; nothing where nothing is.
    [[nodiscard]] std::optional<uid_t> owner() const { return m_owner; }
    [[nodiscard]] bool isSocket() const { return m_isSocket; }

    //! Leads to the very socket, by way of /proc: without that mounted connecting fails with ENOENT.
    [[nodiscard]] sockaddr_un address() const;

private:
    UniqueFd m_file;
    std::optional<uid_t> m_owner;
    bool m_isSocket = false;
};

} // namespace fv2
