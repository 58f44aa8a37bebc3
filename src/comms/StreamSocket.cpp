// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/StreamSocket.h"

#include "comms/StallGuard.h"

#include <cerrno>
#include <sys/socket.h>

namespace fv2 {

namespace {

constexpr std::chrono::milliseconds kFirstPause{10};
constexpr std::chrono::milliseconds kLongestPause{320};

} // namespace

UniqueFd makeStreamSocket() {
    UniqueFd made(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (made)
        StallGuard::refuseDescriptors(made.get());
    return made;
}

bool connectStream(int descriptor, const sockaddr_un& address, const Deadline& deadline, const StopSignal& stop) {
    auto pause = kFirstPause;
    for (;;) {
        const int result = ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        if (result == 0 || errno == EISCONN)
            return true;
        if (errno == EINTR)
            continue;
        if (errno != EAGAIN || deadline.passed())
            return false;
        if (stop.waitFor(-1, 0, Deadline::earlier(deadline, Deadline(pause))) == fv2Wait::Stopped)
            return false;
        pause = std::min(2 * pause, kLongestPause);
    }
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
