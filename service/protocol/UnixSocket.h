// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/UniqueFd.h"

#include <optional>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace fv2::service {

//! None when the path does not fit into an address.
[[nodiscard]] std::optional<sockaddr_un> unixAddress(const std::string& path);

//! A non-blocking stream socket, not inherited by programs.
[[nodiscard]] UniqueFd makeUnixSocket();

//! Connects without waiting: 0, or the error number; EAGAIN means that somebody listens but is too busy now.
[[nodiscard]] int connectNow(int fd, const std::string& path);

} // namespace fv2::service
