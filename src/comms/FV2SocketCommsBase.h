// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/StopSignal.h"
#include "base/UniqueFd.h"
#include "comms/IncomingConnections.h"
#include "comms/PeerPolicy.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <sys/un.h>

namespace fv2 {

//! How long a client goes on trying.
struct CommsTimeouts {
    int attempts = 5;
    std::chrono::milliseconds perAttempt{10'000};
};

//! One endpoint in /tmp, used as client (one request and one reply a connection) or as listener. Failures are results,
//! never exceptions. Not thread-safe, except for shutdown(), which any thread may call.
class FV2SocketCommsBase {
public:
    //! Longer replies count as none.
    static constexpr std::size_t maxReply = 1024 * 1024;

    virtual ~FV2SocketCommsBase();
    FV2SocketCommsBase(const FV2SocketCommsBase&) = delete;
    FV2SocketCommsBase& operator=(const FV2SocketCommsBase&) = delete;

    //! Connects as client, dropping an earlier connection: only to a trusted user's socket, and then asks the kernel
    //! who listens. False if nobody or a stranger does; a stranger has received no byte.
    bool createConnection();

    //! One exchange; tried again while the reply is empty. Empty after the last attempt, at once for an empty text, a
    //! stranger or a raised stop signal.
    [[nodiscard]] std::string sendAndReceive(std::string_view text);
    //! Why the last attempt had no reply, for the administrator; empty for a stranger, who was reported.
    [[nodiscard]] const std::string& failure() const { return m_failure; }

    //! Makes the listening socket, replacing a stale socket file; its mode becomes 644. False when the path can't be
    //! had.
    bool createBinding();

    //! Waits for a connection and its message; others are read meanwhile. No socket once shutdown() was called.
    [[nodiscard]] FV2SocketComms_ReceivedData listenAcceptAndReceiveData();

    //! Closes an accepted connection after its answer, so that the answer arrives even if the peer is still sending.
    void closeAfterAnswer(FV2SocketComms_ReceivedData message) { m_incoming.close(std::move(message)); }

    //! One non-blocking send, so that a peer that does not read blocks nobody: the count of bytes taken, or -1. A new
    //! connection takes all of a text of up to 200 KB.
    ssize_t send(int descriptor, std::string_view text) const;

    //! Closes the socket, the connections that came in on it, and removes its file; true when there was one. While a
    //! thread listens, by that thread.
    bool cleanup();

    //! Any thread: the listening socket's file is gone or was replaced, so that nobody can find us.
    [[nodiscard]] bool isPathGone();

    //! Any thread: listening ends as if the socket had failed. Another binding may follow.
    void stopListening();

    //! Ends the listening side from any thread and any state: a waiting listenAcceptAndReceiveData() returns, later
    //! calls return at once.
    void shutdown();

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] const StopSignal& stopSignal() const { return *m_stop; }

protected:
    FV2SocketCommsBase(std::string_view className, std::string path, PeerPolicy trusted,
                       std::shared_ptr<const StopSignal> stop, CommsTimeouts timeouts);

private:
    struct FileId {
        dev_t device;
        ino_t number;
        bool operator==(const FileId&) const = default;
    };

    void closeSocket();
    [[nodiscard]] bool connectWithin(const Deadline& deadline);
    //! Logs a stranger; true for one.
    [[nodiscard]] bool refusesStranger(std::optional<uid_t> uid);
    [[nodiscard]] bool bindPath();
    [[nodiscard]] std::optional<FileId> fileAtPath() const;
    [[nodiscard]] std::string exchangeOnce(std::string_view text);
    [[nodiscard]] std::optional<std::string> receiveWithin(int descriptor, const Deadline& deadline) const;
    bool unlinkPath() const;

    std::string m_path;
    std::string m_description;
    PeerPolicy m_trusted;
    CommsTimeouts m_timeouts;
    std::shared_ptr<const StopSignal> m_stop;
    bool m_metStranger = false;
    std::string m_failure;
    IncomingConnections m_incoming;

    bool connected = false;
    std::atomic<bool> acceptActive = false; //!< the listening thread waits in listenAcceptAndReceiveData()
    std::atomic<int> m_listening = -1;      //!< what shutdown() may say about `sock`
    std::mutex m_sockMutex;                 //!< while `sock` changes its number, and while another thread uses it
    std::optional<FileId> m_boundFile;
    UniqueFd sock;
    sockaddr_un sockAddrUn{};
};

} // namespace fv2
