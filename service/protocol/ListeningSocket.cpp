// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/ListeningSocket.h"

#include "protocol/UnixSocket.h"

#include <cerrno>
#include <system_error>

namespace fv2::service {

namespace {

constexpr mode_t everybody = 0666;
constexpr int backlog = 64;

std::string reason(int error) {
    return std::generic_category().message(error);
}

} // namespace

ListeningSocket::~ListeningSocket() {
    struct stat now {};
    if (m_socket && ::lstat(m_path.c_str(), &now) == 0 && now.st_dev == m_file.st_dev && now.st_ino == m_file.st_ino)
        ::unlink(m_path.c_str());
}

std::string ListeningSocket::makeWay() const {
    struct stat present {};
    if (::lstat(m_path.c_str(), &present) != 0)
        return errno == ENOENT ? "" : m_path + ": " + reason(errno);
    if (!S_ISSOCK(present.st_mode))
        return m_path + " is there and is not a socket";
    const UniqueFd probe = makeUnixSocket();
    const int error = connectNow(probe.get(), m_path);
    if (error == 0 || error == EAGAIN)
        return m_path + " is served by another process";
    if (error != ECONNREFUSED)
        return m_path + " can't be taken over: " + reason(error);
    return ::unlink(m_path.c_str()) == 0 ? "" : m_path + " is stale and can't be removed: " + reason(errno);
}

std::string ListeningSocket::open(const std::string& path) {
    m_path = path;
    const auto address = unixAddress(path);
    if (!address)
        return "'" + path + "' is not a usable socket path";
    if (std::string obstacle = makeWay(); !obstacle.empty())
        return obstacle;
    UniqueFd socket = makeUnixSocket();
    if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0)
        return path + " can't be bound: " + reason(errno);
    if (::lstat(path.c_str(), &m_file) != 0)
        return path + " can't be examined: " + reason(errno);
    m_socket = std::move(socket);
    if (::chmod(path.c_str(), everybody) != 0 || ::listen(m_socket.get(), backlog) != 0)
        return path + " can't be served: " + reason(errno);
    return "";
}

} // namespace fv2::service
