// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/UniqueFd.h"
#include "support/Process.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <functional>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

namespace fv2::test {

inline sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

//! A blocking socket whose calls take 5 s at the most.
inline UniqueFd newSocket() {
    UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const timeval limit{5, 0};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return socket;
}

//! A listening socket at `path`, in place of what was there.
inline UniqueFd listenAt(const std::string& path, int backlog = 5) {
    UniqueFd socket = newSocket();
    const sockaddr_un address = addressOf(path);
    ::unlink(path.c_str());
    ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::listen(socket.get(), backlog);
    return socket;
}

//! `socket` once connected; none when nobody has listened for 2 s.
inline UniqueFd connectTo(const std::string& path, UniqueFd socket = newSocket()) {
    const sockaddr_un address = addressOf(path);
    for (const Deadline deadline(std::chrono::seconds(2)); !deadline.passed(); ::usleep(1000))
        if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return socket;
    return {};
}

inline bool sendAll(const UniqueFd& socket, std::string_view text) {
    return ::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
}

//! Sends a byte and with it a TCP connection that nobody reads, so that its last close takes an hour. Returns what
//! keeps the connection; none if the system refused to send it.
inline UniqueFd sendLingering(const UniqueFd& socket) {
    const UniqueFd server(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ::listen(server.get(), 1); // at some port of 127.0.0.1 or any other address of ours
    sockaddr_in address{};
    socklen_t length = sizeof address;
    ::getsockname(server.get(), reinterpret_cast<sockaddr*>(&address), &length);
    const UniqueFd sent(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ::connect(sent.get(), reinterpret_cast<const sockaddr*>(&address), length);
    UniqueFd kept(::accept4(server.get(), nullptr, nullptr, SOCK_CLOEXEC));
    const std::string unread(1 << 20, 'x');
    while (::send(sent.get(), unread.data(), unread.size(), MSG_DONTWAIT) > 0) {
    }
    const linger hour{1, 3600};
    ::setsockopt(sent.get(), SOL_SOCKET, SO_LINGER, &hour, sizeof hour);
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
    char byte = '{';
    iovec data{&byte, 1};
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    *CMSG_FIRSTHDR(&message) = {CMSG_LEN(sizeof(int)), SOL_SOCKET, SCM_RIGHTS};
    const int number = sent.get();
    std::memcpy(CMSG_DATA(CMSG_FIRSTHDR(&message)), &number, sizeof number);
    if (::sendmsg(socket.get(), &message, MSG_NOSIGNAL) == 1)
        return kept;
    const linger none{};
    ::setsockopt(sent.get(), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    return {};
}

//! What comes until the other side ends the stream or `enough` bytes are there; "(time out)" is added when neither
//! does.
inline std::string receiveAll(const UniqueFd& socket, std::size_t enough = std::string::npos) {
    std::string all;
    std::array<char, 65536> chunk{};
    for (ssize_t count = 1; count > 0 && all.size() < enough;) {
        count = ::recv(socket.get(), chunk.data(), chunk.size(), 0);
        all.append(chunk.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count < 0 && errno == EAGAIN)
            all += "(time out)";
    }
    return all;
}

inline bool isReadable(const UniqueFd& socket) {
    pollfd readable{socket.get(), POLLIN, 0};
    const timespec none{};
    return ::ppoll(&readable, 1, &none, nullptr) == 1; // leaves poll to what is tested: Faults count it
}

//! Stands where the service stands: plays `script` for one connection after the other, on a thread of its own.
class ScriptedPeer {
public:
    using Script = std::function<void(const UniqueFd& connection)>;

    ScriptedPeer(const std::string& path, const Script& script)
        : m_listening(listenAt(path))
        , m_thread([this, script] {
            for (UniqueFd fd; (fd = UniqueFd(::accept4(m_listening.get(), nullptr, nullptr, SOCK_CLOEXEC)));
                 fd.reset()) {
                ++m_connections;
                script(fd);
            }
        }) {}
    ~ScriptedPeer() { ::shutdown(m_listening.get(), SHUT_RDWR); }

    [[nodiscard]] int connections() const { return m_connections; }

private:
    UniqueFd m_listening;
    std::atomic<int> m_connections = 0;
    std::jthread m_thread;
};

} // namespace fv2::test
