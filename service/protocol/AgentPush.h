// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/UniqueFd.h"
#include "protocol/PollLoop.h"

#include <string>
#include <sys/types.h>

namespace fv2::service {

enum class PushResult { Pending, Answered, NoAgent, Failed };

//! One notification to one agent: reaches for its socket, believes it only if the user's own process or root listens,
//! sends, and waits for the answer. Never blocks the loop.
class AgentPush {
public:
    AgentPush(uid_t uid, std::string path, std::chrono::milliseconds limit);

    void prepare(PollSet& set) const;

    //! Goes as far as it can now.
    [[nodiscard]] PushResult advance();

    //! Why it did not end as Answered.
    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    PushResult reach();
    PushResult readAnswer();
    PushResult judgeAnswer();
    PushResult fail(std::string problem);

    uid_t m_uid;
    std::string m_path;
    Deadline m_deadline;
    UniqueFd m_socket;
    bool m_sent = false;
    std::string m_answer;
    std::string m_problem;
};

} // namespace fv2::service
