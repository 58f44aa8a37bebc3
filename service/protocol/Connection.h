// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Limits.h"
#include "protocol/PollLoop.h"
#include "protocol/ReplyFault.h"
#include "protocol/RequestHandler.h"
#include "protocol/SecretBuffer.h"

namespace fv2::service {

//! One accepted connection: one request, one reply, each within its time, then closed. The fault that it was born with
//! bends how it replies.
class Connection {
public:
    Connection(UniqueFd socket, uid_t peer, const ReplyFault& fault, const Limits& limits, RequestHandler& handler);

    void prepare(PollSet& set) const;
    void handle(const PollSet& set);
    [[nodiscard]] bool isOver() const { return !m_socket.isOpen(); }

private:
    enum class Phase {
        Reading,
        Holding, //!< a slow reply: kept until its time
        Silent,  //!< nothing is read or written until the peer goes
        Writing,
        Lingering //!< the reply is out; the peer's leftovers are read, lest closing cut the reply off
    };

    void read();
    void readEnded();
    void write();
    void linger();
    void timeIsUp();
    void enter(Phase phase, std::chrono::milliseconds limit);
    [[nodiscard]] std::string makeReply();

    UniqueFd m_socket;
    uid_t m_peer;
    ReplyFault m_fault;
    Limits m_limits;
    RequestHandler& m_handler;
    Phase m_phase;
    Deadline m_deadline;
    SecretBuffer m_request;
    std::string m_reply;
    std::size_t m_written = 0;
};

} // namespace fv2::service
