// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2SocketCommsBase.h"

#include "comms/ListeningPlace.h"
#include "comms/MessageReader.h"
#include "comms/StallGuard.h"
#include "comms/StreamSocket.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <system_error>

namespace fv2 {

namespace {

constexpr int kBacklog = 5;

ssize_t receiveGuarded(int descriptor, std::array<char, MessageReader::chunkSize>& chunk) {
    const StallGuard guard;
    return receiveNow(descriptor, chunk.data(), chunk.size());
}

} // namespace

FV2SocketCommsBase::FV2SocketCommsBase(std::string_view className, std::string path, PeerPolicy trusted,
                                       std::shared_ptr<const StopSignal> stop, CommsTimeouts timeouts)
    : m_path(std::move(path))
    , m_description(std::string(className) + "(" + m_path + ")")
    , m_trusted(std::move(trusted))
    , m_timeouts(timeouts)
    , m_stop(std::move(stop))
    , m_incoming(m_trusted) {
    sockAddrUn.sun_family = AF_UNIX;
    m_path.copy(sockAddrUn.sun_path, sizeof sockAddrUn.sun_path - 1);
}

FV2SocketCommsBase::~FV2SocketCommsBase() {
    logTrace("FV2SocketCommsBase deinit for ", m_description);
    closeSocket();
    m_incoming.closeAll();
}

void FV2SocketCommsBase::closeSocket() {
    const StallGuard guard;
    UniqueFd closing;
    const std::lock_guard lock(m_sockMutex); // withdrawn before it is closed
    closing = std::move(sock);
    m_boundFile.reset();
    connected = false;
}

bool FV2SocketCommsBase::createConnection() {
    return connectWithin(Deadline(m_timeouts.perAttempt));
}

bool FV2SocketCommsBase::connectWithin(const Deadline& deadline) {
    closeSocket();
    const ListeningPlace place(m_path);
    m_failure = (place.owner() ? "no socket is at " : "nobody listens at ") + m_path;
    m_metStranger = place.owner() && refusesStranger(place.owner());
    if (m_metStranger || !place.isSocket())
        return false;
    sock = makeStreamSocket();
    if (sock && connectStream(sock.get(), place.address(), deadline, *m_stop)) {
        m_metStranger = refusesStranger(peerOf(sock.get()));
        if (!m_metStranger)
            return true;
    } else if (const int error = errno; sock) {
        m_failure = "can't connect to " + m_path + ": " + std::generic_category().message(error);
        if (error == ENOENT)
            reportOnce("connect by /proc", "can't connect to " + m_path + ": /proc is not mounted");
    }
    closeSocket();
    return false;
}

bool FV2SocketCommsBase::refusesStranger(std::optional<uid_t> uid) {
    if (uid && m_trusted.trusts(*uid))
        return false;
    const std::string what =
        "refused a stranger at " + m_path + ", uid:" + (uid ? std::to_string(*uid) : std::string("unknown"));
    m_failure.clear();
    log(FV2LoggingLevel::error, {"createConnection() " + what});
    reportStrangerOnce(what, what);
    return true;
}

std::string FV2SocketCommsBase::sendAndReceive(std::string_view text) {
    for (int attempt = 1; attempt <= m_timeouts.attempts && !text.empty() && !m_stop->isRaised(); ++attempt) {
        std::string reply = exchangeOnce(text);
        if (!reply.empty())
            return reply;
        if (m_metStranger)
            break;
        logTrace("sendAndReceive - RETRY ", attempt, " ");
    }
    logTrace("COMMAND FAILURE");
    return {};
}

std::string FV2SocketCommsBase::exchangeOnce(std::string_view text) {
    const Deadline deadline(m_timeouts.perAttempt);
    if (!connectWithin(deadline)) {
        logTrace("sendAndReceive - createConnection failed.");
        return {};
    }
    logTrace("createConnection() socket:", sock.get());
    m_failure = "no reply from " + m_path;
    std::optional<std::string> reply;
    if (send(sock.get(), text) == static_cast<ssize_t>(text.size()))
        reply = receiveWithin(sock.get(), deadline);
    closeSocket();
    return std::move(reply).value_or(std::string());
}

ssize_t FV2SocketCommsBase::send(int descriptor, std::string_view text) const {
    logTrace("Send socket:", descriptor);
    const ssize_t sent = sendOnce(descriptor, text);
    logTrace("Send Result ", sent);
    return sent;
}

std::optional<std::string> FV2SocketCommsBase::receiveWithin(int descriptor, const Deadline& deadline) const {
    logTrace("Receive go poll socket:", descriptor, " (note: 10s timeout)");
    fv2Wait wait = m_stop->waitFor(descriptor, POLLIN, deadline);
    logTrace("Receive wake poll # events : ", wait == fv2Wait::Ready ? 1 : wait == fv2Wait::Failed ? -1 : 0);
    if (wait != fv2Wait::Ready)
        return std::nullopt;

    MessageReader reader(maxReply);
    std::array<char, MessageReader::chunkSize> chunk{};
    MessageReader::State state = MessageReader::State::Reading;
    while (wait == fv2Wait::Ready) {
        logTrace("Receive go recv");
        const ssize_t count = receiveGuarded(descriptor, chunk);
        logTrace("Receive recv got ", count);
        if (count < 1)
            break;
        state = reader.take({chunk.data(), static_cast<std::size_t>(count)});
        if (state != MessageReader::State::Reading)
            break;
        wait = m_stop->waitFor(descriptor, POLLIN, Deadline::earlier(deadline, Deadline(kChunkTime)));
    }
    return state == MessageReader::State::TooLong ? std::string() : reader.takeText();
}

bool FV2SocketCommsBase::cleanup() {
    logTrace("FV2SocketCommsBase cleanup for ", m_description);
    closeSocket();
    m_listening = -1;
    m_incoming.closeAll();
    return unlinkPath();
}

bool FV2SocketCommsBase::unlinkPath() const {
    const int result = ::unlink(m_path.c_str());
    logTrace("FV2SocketCommsBase cleanup unlink() returned ", result);
    return result >= 0;
}

bool FV2SocketCommsBase::createBinding() {
    cleanup();
    // Without an eventfd, shutdown() could not wake a waiting listener.
    if (m_stop->descriptor() < 0) {
        reportOnce("no event", "no notifications: the system has no event left to end a listener by");
        return false;
    }
    if (bindPath())
        return true;
    reportOnce("bind " + m_path, "no notifications: can't bind " + m_path);
    closeSocket();
    return false;
}

bool FV2SocketCommsBase::bindPath() {
    UniqueFd made = makeStreamSocket();
    if (!made || m_path.size() >= sizeof sockAddrUn.sun_path ||
        ::bind(made.get(), reinterpret_cast<const sockaddr*>(&sockAddrUn), sizeof sockAddrUn) < 0 ||
        ::chmod(m_path.c_str(), S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH) != 0)
        return false;
    const std::lock_guard lock(m_sockMutex);
    sock = std::move(made);
    m_boundFile = fileAtPath();
    return true;
}

std::optional<FV2SocketCommsBase::FileId> FV2SocketCommsBase::fileAtPath() const {
    struct stat status {};
    if (::lstat(m_path.c_str(), &status) != 0)
        return std::nullopt;
    return FileId{status.st_dev, status.st_ino};
}

bool FV2SocketCommsBase::isPathGone() {
    const std::lock_guard lock(m_sockMutex);
    return m_boundFile && fileAtPath() != m_boundFile;
}

void FV2SocketCommsBase::stopListening() {
    const std::lock_guard lock(m_sockMutex);
    if (m_boundFile)
        ::shutdown(sock.get(), SHUT_RDWR);
}

FV2SocketComms_ReceivedData FV2SocketCommsBase::listenAcceptAndReceiveData() {
    logTrace("listenAcceptAndReceiveData() - listening socket:", sock.get());
    if (m_listening != sock.get() && ::listen(sock.get(), kBacklog) == 0)
        m_listening = sock.get();
    logTrace("listenAcceptAndReceiveData() - calling accept");
    acceptActive = true;
    std::optional<FV2SocketComms_ReceivedData> received = m_incoming.next(sock.get(), *m_stop);
    acceptActive = false;
    if (!received)
        logTrace("listenAcceptAndReceiveData() - accept -> woke on failure. shutdown?");
    return std::move(received).value_or(FV2SocketComms_ReceivedData());
}

void FV2SocketCommsBase::shutdown() {
    // Before the signal: once woken, the listening thread no longer counts as waiting.
    if (acceptActive && !m_stop->isRaised()) {
        logTrace("doing socket shutdown socket:", m_listening.load());
        unlinkPath();
        logTrace("done socket shutdown");
    }
    m_stop->raise();
}

} // namespace fv2
