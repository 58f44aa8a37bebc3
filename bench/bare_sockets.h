// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//! What the bare programs do with sockets: the system calls and nothing else. Any failure ends the program.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace bare {

inline constexpr std::string_view kNotification = R"({ "command": "status_changed" })";
inline constexpr std::string_view kAnswer = R"("{ "result": 0 }")";
inline constexpr int kBacklog = 5; //!< the agent's
inline constexpr char kService[] = "/tmp/orm_ui.sock";

inline std::string agentSocket() {
    return "/tmp/ormfv2_ui_" + std::to_string(::getuid()) + ".sock";
}

template <class Number>
Number checked(Number result, const char* what) {
    if (result < 0) {
        std::perror(what);
        std::exit(EXIT_FAILURE);
    }
    return result;
}

inline sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

inline int listeningAt(const std::string& path) {
    const int listening = checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
    const sockaddr_un address = addressOf(path);
    ::unlink(path.c_str());
    checked(::bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), "bind");
    checked(::listen(listening, kBacklog), "listen");
    return listening;
}

inline int connectedTo(const std::string& path) {
    const int peer = checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
    const sockaddr_un address = addressOf(path);
    checked(::connect(peer, reinterpret_cast<const sockaddr*>(&address), sizeof address), "connect");
    return peer;
}

inline void send(int peer, std::string_view text) {
    checked(::send(peer, text.data(), text.size(), MSG_NOSIGNAL), "send");
}

//! What one read gives: every message here is shorter.
inline std::string received(int peer) {
    char chunk[2048];
    const ssize_t count = checked(::recv(peer, chunk, sizeof chunk, 0), "recv");
    return {chunk, static_cast<std::size_t>(count)};
}

//! Takes in one connection, reads its message and answers it.
inline void answerOne(int listening) {
    const int peer = checked(::accept4(listening, nullptr, nullptr, SOCK_CLOEXEC), "accept");
    if (!received(peer).empty())
        send(peer, kAnswer);
    ::close(peer);
}

inline std::string exchange(const std::string& request) {
    const int peer = connectedTo(kService);
    send(peer, request);
    std::string reply = received(peer);
    ::close(peer);
    return reply;
}

} // namespace bare
