// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Server.h"

#include "comms/PeerPolicy.h"
#include "protocol/UnixSocket.h"

#include <cerrno>
#include <utility>

namespace fv2::service {

Server::Server(RequestHandler& handler, std::function<ReplyFault()> fault, const Limits& limits, Report report)
    : m_handler(handler)
    , m_fault(std::move(fault))
    , m_limits(limits)
    , m_report(std::move(report)) {
}

std::string Server::listenOn(const std::string& path) {
    std::string problem = m_listener.open(path);
    if (problem.empty())
        m_report("listening on " + path);
    return problem;
}

void Server::prepare(PollSet& set) const {
    if (pauses())
        set.wakeBy(*m_pause);
    else if (m_connections.size() < m_limits.connections)
        set.want(m_listener.descriptor(), POLLIN);
    for (const auto& connection : m_connections)
        connection->prepare(set);
}

void Server::handle(const PollSet& set) {
    for (const auto& connection : m_connections)
        connection->handle(set);
    std::erase_if(m_connections, [](const auto& connection) { return connection->isOver(); });
    if (set.ready(m_listener.descriptor()) != 0)
        acceptAll();
}

void Server::acceptAll() {
    while (m_connections.size() < m_limits.connections) {
        UniqueFd socket(::accept4(m_listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (socket) {
            take(std::move(socket));
        } else if (errno != EINTR && errno != ECONNABORTED) {
            if (errno != EAGAIN)
                m_pause = Deadline(m_limits.acceptPause);
            return;
        }
    }
}

void Server::take(UniqueFd socket) {
    const auto peer = peerOf(socket.get());
    const ReplyFault fault = m_fault();
    if (fault.kind != FaultKind::None)
        m_report("connection meets fault " + faultText(fault));
    if (peer && fault.kind != FaultKind::Close)
        m_connections.push_back(std::make_unique<Connection>(std::move(socket), *peer, fault, m_limits, m_handler));
}

} // namespace fv2::service
