// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Engine.h"
#include "protocol/Notifier.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <map>

namespace fv2::service {

//! Turns one request into one reply: who may ask, which token counts, what the engine is asked.
//! A user keeps one token from the first time it asks until it unsubscribes.
class RequestHandler {
public:
    RequestHandler(Engine& engine, Notifier& notifier, Report report);

    //! `peer` is the user at the other end of the connection, which may speak for itself only, or for all as root.
    [[nodiscard]] std::string answer(std::string_view text, uid_t peer);

private:
    std::string answer(const Request& request);
    std::string refuse(ServiceError error, std::string_view why);
    std::string giveToken(uid_t uid);
    std::string giveStatus(uid_t uid);
    std::string startSync(const Request& request);
    std::string unsubscribe(const Request& request);
    std::string takeCredentials(const Request& request);

    Engine& m_engine;
    Notifier& m_notifier;
    Report m_report;
    std::map<uid_t, std::string> m_tokens;
};

} // namespace fv2::service
