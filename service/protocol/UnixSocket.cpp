// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/UnixSocket.h"

#include <cerrno>

namespace fv2::service {

std::optional<sockaddr_un> unixAddress(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return std::nullopt;
    path.copy(address.sun_path, path.size());
    return address;
}

UniqueFd makeUnixSocket() {
    return UniqueFd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

int connectNow(int fd, const std::string& path) {
    const auto address = unixAddress(path);
    if (!address)
        return ENAMETOOLONG;
    return ::connect(fd, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0 ? 0 : errno;
}

} // namespace fv2::service
