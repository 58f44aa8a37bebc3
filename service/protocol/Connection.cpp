// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Connection.h"

#include <array>
#include <cerrno>
#include <sys/random.h>
#include <sys/socket.h>

namespace fv2::service {

namespace {

constexpr std::size_t garbageBytes = 256;
constexpr std::size_t endlessChunk = 16 * 1024;

bool isTemporary(int error) {
    return error == EAGAIN || error == EINTR;
}

//! Random bytes; the first can't begin a text.
std::string garbage() {
    std::string bytes(garbageBytes, '\0');
    [[maybe_unused]] const ssize_t filled = ::getrandom(bytes.data(), bytes.size(), 0);
    bytes.front() = '\xff';
    return bytes;
}

} // namespace

Connection::Connection(UniqueFd socket, uid_t peer, const ReplyFault& fault, const Limits& limits,
                       RequestHandler& handler)
    : m_socket(std::move(socket))
    , m_peer(peer)
    , m_fault(fault)
    , m_limits(limits)
    , m_handler(handler)
    , m_phase(fault.kind == FaultKind::Silent ? Phase::Silent : Phase::Reading)
    , m_deadline(m_phase == Phase::Silent ? limits.misbehaviour : limits.exchange)
    , m_request(limits.requestBytes) {
}

void Connection::prepare(PollSet& set) const {
    const bool reads = m_phase == Phase::Reading || m_phase == Phase::Lingering;
    const bool writes = m_phase == Phase::Writing;
    set.want(m_socket.get(), static_cast<short>(reads ? POLLIN : writes ? POLLOUT : 0));
    set.wakeBy(m_deadline);
}

void Connection::handle(const PollSet& set) {
    const short ready = set.ready(m_socket.get());
    if (ready != 0) {
        switch (m_phase) {
        case Phase::Reading:
            read();
            break;
        case Phase::Writing:
            write();
            break;
        case Phase::Lingering:
            linger();
            break;
        case Phase::Holding:
        case Phase::Silent:
            m_socket.reset();
        }
    }
    if (!isOver() && m_deadline.passed())
        timeIsUp();
}

void Connection::read() {
    const auto room = m_request.room();
    const ssize_t count = ::recv(m_socket.get(), room.data(), room.size(), 0);
    if (count < 0) {
        if (!isTemporary(errno))
            m_socket.reset();
        return;
    }
    m_request.taken(static_cast<std::size_t>(count));
    if (count == 0 || m_request.room().empty() || isWhole(m_request.text()))
        readEnded();
}

void Connection::readEnded() {
    if (m_request.text().empty()) {
        m_socket.reset();
        return;
    }
    m_reply = makeReply();
    m_request.wipe();
    if (m_fault.kind == FaultKind::Slow)
        enter(Phase::Holding, m_fault.delay);
    else if (m_fault.kind == FaultKind::Endless)
        enter(Phase::Writing, m_limits.misbehaviour);
    else
        enter(Phase::Writing, m_limits.exchange);
}

std::string Connection::makeReply() {
    if (m_fault.kind == FaultKind::Garbage)
        return garbage();
    if (m_fault.kind == FaultKind::Endless)
        return R"({"result":true,"token":")";
    if (m_fault.kind == FaultKind::Error)
        return outcomeReply({false, m_fault.errorCode});
    std::string reply = m_handler.answer(m_request.text(), m_peer);
    if (m_fault.kind == FaultKind::Half)
        reply.resize(reply.size() / 2);
    return reply;
}

void Connection::write() {
    const ssize_t count = ::send(m_socket.get(), m_reply.data() + m_written, m_reply.size() - m_written, MSG_NOSIGNAL);
    if (count < 0) {
        if (!isTemporary(errno))
            m_socket.reset();
        return;
    }
    m_written += static_cast<std::size_t>(count);
    if (m_written < m_reply.size())
        return;
    if (m_fault.kind == FaultKind::Endless) {
        m_reply.assign(endlessChunk, 'a');
        m_written = 0;
    } else {
        ::shutdown(m_socket.get(), SHUT_WR);
        enter(Phase::Lingering, m_limits.linger);
    }
}

void Connection::linger() {
    std::array<char, 4096> leftovers; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by recv
    const ssize_t count = ::recv(m_socket.get(), leftovers.data(), leftovers.size(), 0);
    ::explicit_bzero(leftovers.data(), leftovers.size());
    if (count == 0 || (count < 0 && !isTemporary(errno)))
        m_socket.reset();
}

void Connection::timeIsUp() {
    if (m_phase == Phase::Holding)
        enter(Phase::Writing, m_limits.exchange);
    else if (m_phase == Phase::Reading)
        readEnded();
    else
        m_socket.reset();
}

void Connection::enter(Phase phase, std::chrono::milliseconds limit) {
    m_phase = phase;
    m_deadline = Deadline(limit);
}

} // namespace fv2::service
