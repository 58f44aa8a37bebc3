// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/UniqueFd.h"

#include <functional>
#include <mutex>
#include <vector>

namespace fv2 {

//! Jobs from any thread for the one that drains the queue. Its descriptor becomes readable when jobs wait, so that an
//! event loop can watch it; all that crosses is guarded by a mutex of our own, which ThreadSanitizer sees.
class MainQueue {
public:
    MainQueue();

    //! Any thread. Jobs run in the order in which they were posted.
    void post(std::function<void()> job);

    //! Runs the jobs that wait at this moment; those that they post wait for the next call.
    void drain();

    //! -1 when the system had none left: then drain the queue at intervals.
    [[nodiscard]] int descriptor() const { return m_event.get(); }

private:
    UniqueFd m_event;
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_jobs;
};

} // namespace fv2
