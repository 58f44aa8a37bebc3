// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/UniqueFd.h"

#include <atomic>

namespace fv2 {

enum class fv2Wait { Ready, TimedOut, Stopped, Failed };

//! Tells blocking waits on other threads to end. Raised once, from any thread or from a signal handler; stays raised.
class StopSignal {
public:
    StopSignal();

    //! Async-signal-safe.
    void raise() const;
    [[nodiscard]] bool isRaised() const { return m_raised; }

    //! Readable once raised; for a poll set of the caller's own. -1 when the system had none left.
    [[nodiscard]] int descriptor() const { return m_event.get(); }

    //! Waits until `fd` has one of `events` (POLLIN, POLLOUT; an error or hang-up counts as ready), the deadline passes
    //! or the signal is raised, whichever is first. An `fd` of -1 waits for time and signal alone. Interrupted calls go
    //! on.
    [[nodiscard]] fv2Wait waitFor(int fd, short events, const Deadline& deadline) const;

private:
    mutable std::atomic<bool> m_raised = false;
    static_assert(std::atomic<bool>::is_always_lock_free, "raise() runs in signal handlers");
    UniqueFd m_event;
};

} // namespace fv2
