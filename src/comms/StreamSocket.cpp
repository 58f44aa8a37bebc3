// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/StreamSocket.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>

namespace fv2 {

namespace {

constexpr timeval kReceiveTimeout{5, 0};
constexpr std::chrono::milliseconds kBacklogPause{10};

} // namespace

UniqueFd makeStreamSocket() {
    UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (socket)
        limitReceiveTime(socket.get());
    return socket;
}

void limitReceiveTime(int descriptor) {
    ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &kReceiveTimeout, sizeof kReceiveTimeout);
}

bool setBlocking(int descriptor, bool blocking) {
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK) == 0;
}

bool connectStream(int descriptor, const sockaddr_un& address, const Deadline& deadline, const StopSignal& stop) {
    if (!setBlocking(descriptor, false))
        return false;
    for (;;) {
        const int result = ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        if (result == 0 || errno == EISCONN)
            break;
        if (errno == EINTR)
            continue;
        if (errno != EAGAIN || deadline.passed())
            return false;
        if (stop.waitFor(-1, 0, Deadline::earlier(deadline, Deadline(kBacklogPause))) == fv2Wait::Stopped)
            return false;
    }
    setBlocking(descriptor, true);
    return true;
}

ssize_t sendOnce(int descriptor, std::string_view text) {
    for (;;) {
        const ssize_t sent = ::send(descriptor, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent >= 0 || errno != EINTR)
            return sent;
    }
}

ssize_t receiveNow(int descriptor, char* buffer, std::size_t size) {
    for (;;) {
        const ssize_t received = ::recv(descriptor, buffer, size, MSG_DONTWAIT);
        if (received >= 0 || errno != EINTR)
            return received;
    }
}

} // namespace fv2
