// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/IncomingConnections.h"

#include "comms/StallGuard.h"
#include "comms/StreamSocket.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"

#include <array>
#include <cerrno>
#include <limits>
#include <poll.h>
#include <sys/socket.h>
#include <vector>

namespace fv2 {

namespace {

constexpr std::chrono::seconds kTotalTime{10};
//! The rest of a split send follows at once.
constexpr std::chrono::milliseconds kSplitTime{100};
constexpr std::chrono::milliseconds kBackOff{100};
//! New peers are answered at once; after this many, slower messages get their turn.
constexpr int kAcceptsBeforePoll = 16;
constexpr std::size_t kMaxDrained = 16 * 1024 * 1024;

bool isOutOfResources(int error) {
    return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

bool isPassing(int error) {
    return error == EINTR || error == EAGAIN || error == ECONNABORTED;
}

} // namespace

std::optional<FV2SocketComms_ReceivedData> IncomingConnections::next(int listening, const StopSignal& stop) {
    while (m_finished.empty())
        if (stop.isRaised() || !(m_acceptsBeforePoll > 0 ? acceptOne(listening) : pollAll(listening, stop)))
            return std::nullopt;
    FV2SocketComms_ReceivedData message = std::move(m_finished.front());
    m_finished.pop_front();
    return message;
}

bool IncomingConnections::pollAll(int listening, const StopSignal& stop) {
    std::vector<pollfd> set;
    set.reserve(m_open.size() + 2);
    set.push_back({stop.descriptor(), POLLIN, 0});
    set.push_back({isBackingOff() ? -1 : listening, POLLIN, 0});
    for (const Connection& connection : m_open)
        set.push_back({connection.socket.get(), POLLIN, 0});
    if (::poll(set.data(), set.size(), pollTimeout()) < 0)
        return errno == EINTR;
    // poll() reports a shut-down listening socket; accept4() only says that nobody waits.
    if (set[0].revents != 0 || (set[1].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0)
        return false;
    const StallGuard guard;
    readReady(set);
    m_acceptsBeforePoll = set[1].revents == 0 ? 0 : kAcceptsBeforePoll;
    return true;
}

void IncomingConnections::readReady(const std::vector<pollfd>& set) {
    auto polled = set.cbegin() + 2;
    for (auto each = m_open.begin(); each != m_open.end(); ++polled) {
        const bool ready = polled->revents != 0;
        const bool done = ready && (each->draining ? drain(*each) : read(*each)) == Reading::Done;
        if (done || each->total.passed() || each->nextChunk.passed()) {
            finish(std::move(*each));
            each = m_open.erase(each);
        } else {
            ++each;
        }
    }
}

void IncomingConnections::finish(Connection connection) {
    if (connection.draining)
        return;
    const std::size_t byteCount = connection.reader.byteCount();
    m_finished.push_back({std::move(connection.socket), connection.reader.takeText(), byteCount, connection.cut});
}

bool IncomingConnections::acceptOne(int listening) {
    const StallGuard guard;
    const bool pollHasSeenOne = m_acceptsBeforePoll-- == kAcceptsBeforePoll;
    UniqueFd socket(::accept4(listening, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket) {
        takeIn(std::move(socket));
        return true;
    }
    m_acceptsBeforePoll = 0;
    if (!isOutOfResources(errno))
        return isPassing(errno);
    // A full table is reported even when nobody waits: then no connection is dropped.
    if (pollHasSeenOne && !dropOldest())
        m_backOff = Deadline(kBackOff);
    return true;
}

void IncomingConnections::takeIn(UniqueFd socket) {
    const std::optional<uid_t> peer = peerOf(socket.get());
    if (!peer || !m_trusted.trusts(*peer)) {
        const std::string what = "refused a stranger, uid:" + (peer ? std::to_string(*peer) : std::string("unknown"));
        log(FV2LoggingLevel::error, {"listenAcceptAndReceiveData() - " + what});
        reportStrangerOnce(what, what);
        return;
    }
    logTrace("listenAcceptAndReceiveData() - accept -> calling Receive");
    logTrace("Receive go poll socket:", socket.get(), " (note: 10s timeout)");
    Connection connection{.socket = std::move(socket),
                          .total = Deadline(kTotalTime),
                          .nextChunk = Deadline(kTotalTime),
                          .reader = MessageReader(maxMessage)};
    // Most have sent their message by now.
    if (read(connection) == Reading::Done)
        return finish(std::move(connection));
    if (m_open.size() >= maxOpen)
        dropOldest();
    m_open.push_back(std::move(connection));
}

IncomingConnections::Reading IncomingConnections::read(Connection& connection) {
    for (;;) {
        const ssize_t count = receiveNow(connection.socket.get(), m_chunk.data(), m_chunk.size());
        if (count < 0 && errno == EAGAIN)
            return Reading::Waiting;
        if (connection.reader.byteCount() == 0)
            logTrace("Receive wake poll # events : 1");
        logTrace("Receive go recv");
        logTrace("Receive recv got ", count);
        if (count < 1)
            return Reading::Done;
        const auto state = connection.reader.take({m_chunk.data(), static_cast<std::size_t>(count)});
        connection.cut = state == MessageReader::State::TooLong;
        if (state != MessageReader::State::Reading)
            return Reading::Done;
        connection.nextChunk = Deadline(static_cast<std::size_t>(count) < m_chunk.size() ? kSplitTime : kChunkTime);
    }
}

IncomingConnections::Reading IncomingConnections::drain(Connection& connection) {
    std::array<char, 16 * 1024> waste{};
    const ssize_t count = receiveNow(connection.socket.get(), waste.data(), waste.size());
    if (count < 0 && errno == EAGAIN)
        return Reading::Waiting;
    if (count < 1)
        return Reading::Done;
    connection.drained += static_cast<std::size_t>(count);
    return connection.drained < kMaxDrained ? Reading::Waiting : Reading::Done;
}

void IncomingConnections::close(FV2SocketComms_ReceivedData message) {
    const StallGuard guard;
    UniqueFd socket = std::move(message.socket);
    char unread = 0;
    if (!message.cut && receiveNow(socket.get(), &unread, 1) < 1)
        return;
    ::shutdown(socket.get(), SHUT_WR);
    if (m_open.size() >= maxOpen)
        dropOldest();
    m_open.push_back({.socket = std::move(socket),
                      .total = Deadline(kTotalTime),
                      .nextChunk = Deadline(kTotalTime),
                      .reader = MessageReader(maxMessage),
                      .draining = true});
}

void IncomingConnections::closeAll() {
    const StallGuard guard;
    m_open.clear();
    m_finished.clear();
}

bool IncomingConnections::dropOldest() {
    if (m_open.empty())
        return false;
    m_open.pop_front();
    return true;
}

int IncomingConnections::pollTimeout() const {
    int timeout = isBackingOff() ? m_backOff->pollTimeout() : std::numeric_limits<int>::max();
    for (const Connection& connection : m_open)
        timeout = std::min({timeout, connection.total.pollTimeout(), connection.nextChunk.pollTimeout()});
    return timeout == std::numeric_limits<int>::max() ? -1 : timeout;
}

} // namespace fv2
