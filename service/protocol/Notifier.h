// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/AgentPush.h"
#include "protocol/Limits.h"
#include "protocol/Report.h"

#include <map>
#include <optional>

namespace fv2::service {

//! Remembers which users' agents want to hear of changes, and tells them. At most one push to an agent is under way;
//! what comes meanwhile becomes one more push after it.
class Notifier final : public PollClient {
public:
    Notifier(std::string agentSocketFolder, const Limits& limits, Report report);

    //! Subscribes and tells the agents whose sockets are there already: they have asked an earlier run of the service.
    void announce();

    void subscribe(uid_t uid);
    void unsubscribe(uid_t uid);
    void notifyAll();

    void prepare(PollSet& set) const override;
    void handle(const PollSet& set) override;

private:
    struct Subscriber {
        unsigned absences = 0; //!< pushes in a row that found no agent
        bool again = false;
        std::optional<AgentPush> push;
    };

    void begin(uid_t uid, Subscriber& subscriber) const;

    //! False when the subscriber is to be forgotten.
    [[nodiscard]] bool advance(uid_t uid, Subscriber& subscriber);

    std::string m_folder;
    Limits m_limits;
    Report m_report;
    std::map<uid_t, Subscriber> m_subscribers;
};

} // namespace fv2::service
