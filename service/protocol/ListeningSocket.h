// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/UniqueFd.h"

#include <string>
#include <sys/stat.h>

namespace fv2::service {

//! The service's socket: anybody may connect, only one process serves it. Its file goes with it.
class ListeningSocket {
public:
    ListeningSocket() = default;
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

    //! Takes the file away if it is still the one that was made here.
    ~ListeningSocket();

    //! Empty when listening; otherwise why `path` can't be had. A socket file that nobody serves is replaced; one that
    //! is served, and anything that is no socket, is left alone.
    [[nodiscard]] std::string open(const std::string& path);

    [[nodiscard]] int descriptor() const { return m_socket.get(); }

private:
    [[nodiscard]] std::string makeWay() const;

    std::string m_path;
    UniqueFd m_socket;
    struct stat m_file {};
};

} // namespace fv2::service
