// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/StopSignal.h"

#include <optional>
#include <poll.h>
#include <span>
#include <vector>

namespace fv2::service {

//! What one pass of the loop waits for: descriptors and the earliest of some times.
class PollSet {
public:
    //! With no `events` only a hang-up or an error is waited for.
    void want(int fd, short events) { m_descriptors.push_back({fd, events, 0}); }
    void wakeBy(const Deadline& deadline) { m_wake = m_wake ? Deadline::earlier(*m_wake, deadline) : deadline; }

    //! False when the system can't wait at all. An interrupted wait is a pass with nothing ready.
    [[nodiscard]] bool wait();

    //! What happened on `fd`; a descriptor that was opened during the pass may show what befell its number before.
    [[nodiscard]] short ready(int fd) const;

private:
    std::vector<pollfd> m_descriptors;
    std::optional<Deadline> m_wake;
};

//! One that takes part in the loop: says what it waits for, then handles what came. Neither call may block.
class PollClient {
public:
    virtual ~PollClient() = default;
    virtual void prepare(PollSet& set) const = 0;
    virtual void handle(const PollSet& set) = 0;
};

//! One pass over the clients in their order.
[[nodiscard]] bool pollOnce(std::span<PollClient* const> clients);

//! Passes until `stop` is raised (true) or waiting fails (false).
[[nodiscard]] bool pollUntilStopped(const StopSignal& stop, std::span<PollClient* const> clients);

} // namespace fv2::service
