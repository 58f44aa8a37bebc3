// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"
#include "base/UniqueFd.h"
#include "support/Process.h"

#include <array>
#include <atomic>
#include <cstring>
#include <functional>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

namespace fv2::test {

inline sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
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

inline UniqueFd listenAt(const std::string& path, int backlog = 5) {
    UniqueFd socket = newSocket();
    const sockaddr_un address = addressOf(path);
    ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::listen(socket.get(), backlog);
    return socket;
}

//! Connects `socket`; tries again for 2 s while nobody listens yet.
inline bool connectTo(const std::string& path, const UniqueFd& socket) {
    const sockaddr_un address = addressOf(path);
    for (const Deadline deadline(std::chrono::seconds(2)); !deadline.passed(); ::usleep(1000))
        if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return true;
    return false;
}

inline UniqueFd connectTo(const std::string& path) {
    UniqueFd socket = newSocket();
    if (!connectTo(path, socket))
        socket.reset();
    return socket;
}

inline bool sendAll(const UniqueFd& socket, std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = ::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL);
        if (sent < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

//! What comes until the other side ends the stream or `enough` bytes are there; "(time out)" is added when neither
//! does.
inline std::string receiveAll(const UniqueFd& socket, std::size_t enough = std::string::npos) {
    std::string all;
    std::array<char, 65536> chunk{};
    while (all.size() < enough) {
        const ssize_t count = ::recv(socket.get(), chunk.data(), chunk.size(), 0);
        if (count < 0 && errno == EAGAIN)
            return all + "(time out)";
        if (count < 1)
            break;
        all.append(chunk.data(), static_cast<std::size_t>(count));
    }
    return all;
}

//! Stands where the service stands: plays `script` for one connection after the other, on a thread of its own.
class ScriptedPeer {
public:
    using Script = std::function<void(const UniqueFd& connection)>;

    ScriptedPeer(const std::string& path, Script script)
        : m_listening(listenAt(path))
        , m_script(std::move(script))
        , m_thread([this] { serve(); }) {}
    ~ScriptedPeer() { m_stop.raise(); }

    [[nodiscard]] int connections() const { return m_connections; }

private:
    void serve() {
        SignalStorm::keepOffThisThread();
        while (m_stop.waitFor(m_listening.get(), POLLIN, Deadline(std::chrono::minutes(1))) == fv2Wait::Ready) {
            UniqueFd connection(::accept4(m_listening.get(), nullptr, nullptr, SOCK_CLOEXEC));
            ++m_connections;
            m_script(connection);
        }
    }

    UniqueFd m_listening;
    Script m_script;
    StopSignal m_stop;
    std::atomic<int> m_connections = 0;
    std::jthread m_thread;
};

} // namespace fv2::test
