// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/StopSignal.h"
#include "base/UniqueFd.h"
#include "comms/MessageReader.h"
#include "comms/PeerPolicy.h"

#include <array>
#include <deque>
#include <list>
#include <optional>
#include <poll.h>
#include <string>
#include <vector>

namespace fv2 {

//! One message that came in on the listening socket. Of a default-made one, the socket is none: accepting has ended.
struct FV2SocketComms_ReceivedData {
    UniqueFd socket;           //!< the connection to answer on
    std::string data;          //!< the text; empty when nothing was read
    std::size_t byteCount = 0; //!< bytes that came; text may be empty all the same, when the first one is zero
    bool cut = false;          //!< longer than allowed: the rest was not read
};

//! The connections of one listening socket: reads many at once, so that an idle or endless peer blocks nobody. One
//! thread. Each connection has 10 s in all and 5 s from one chunk to the next, 100 ms after a short one; a notification
//! is at most 64 KiB.
class IncomingConnections {
public:
    //! At most this many are open; a new one replaces the one that has waited longest.
    static constexpr std::size_t maxOpen = 128;
    static constexpr std::size_t maxMessage = 64 * 1024;

    explicit IncomingConnections(PeerPolicy trusted)
        : m_trusted(std::move(trusted)) {}

    //! Takes a listening socket that does not block. Waits for the next connection that has sent its message, ended or
    //! run out of time (then what came so far, maybe nothing, is its text). Nothing once what has been read is
    //! handed out and `stop` is raised or the listening socket has failed.
    [[nodiscard]] std::optional<FV2SocketComms_ReceivedData> next(int listening, const StopSignal& stop);

    //! Ends a connection so that its peer still gets our answer: what the peer is still sending is read and thrown away
    //! for a while, as closing over unread bytes would discard the answer too.
    void close(FV2SocketComms_ReceivedData message);

    void closeAll();

private:
    struct Connection {
        UniqueFd socket;
        Deadline total;
        Deadline nextChunk;
        MessageReader reader;
        bool cut = false;
        bool draining = false;
        std::size_t drained = 0;
    };
    enum class Reading { Waiting, Done };

    void readReady(const std::vector<pollfd>& set);
    //! False when the listening socket has failed for good.
    [[nodiscard]] bool acceptOne(int listening);
    //! Waits, then reads what has come. False when told to stop or when polling fails.
    [[nodiscard]] bool pollAll(int listening, const StopSignal& stop);
    void takeIn(UniqueFd socket);
    void finish(Connection connection);
    [[nodiscard]] Reading read(Connection& connection);
    [[nodiscard]] static Reading drain(Connection& connection);
    bool dropOldest();
    [[nodiscard]] int pollTimeout() const;
    [[nodiscard]] bool isBackingOff() const { return m_backOff && !m_backOff->passed(); }

    PeerPolicy m_trusted;
    std::list<Connection> m_open; //!< oldest first
    std::deque<FV2SocketComms_ReceivedData> m_finished;
    std::optional<Deadline> m_backOff;
    int m_acceptsBeforePoll = 0; //!< accepts left until the next poll; refilled by a poll that saw a peer
    std::array<char, MessageReader::chunkSize> m_chunk{};
};

} // namespace fv2
