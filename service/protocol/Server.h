// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Connection.h"
#include "protocol/ListeningSocket.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace fv2::service {

//! Accepts connections and carries each to its end.
class Server final : public PollClient {
public:
    //! `fault` is asked once for every connection; none of it is kept here.
    Server(RequestHandler& handler, std::function<ReplyFault()> fault, const Limits& limits, Report report);

    //! Empty when listening; otherwise why not.
    [[nodiscard]] std::string listenOn(const std::string& path);

    void prepare(PollSet& set) const override;
    void handle(const PollSet& set) override;

private:
    [[nodiscard]] bool pauses() const { return m_pause && !m_pause->passed(); }
    void acceptAll();
    void take(UniqueFd socket);

    RequestHandler& m_handler;
    std::function<ReplyFault()> m_fault;
    Limits m_limits;
    Report m_report;
    ListeningSocket m_listener;
    std::optional<Deadline> m_pause;
    std::vector<std::unique_ptr<Connection>> m_connections;
};

} // namespace fv2::service
