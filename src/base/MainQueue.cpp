// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/MainQueue.h"

#include <cstdint>
#include <sys/eventfd.h>

namespace fv2 {

MainQueue::MainQueue()
    : m_event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
}

void MainQueue::post(std::function<void()> job) {
    const std::lock_guard lock(m_mutex);
    m_jobs.push_back(std::move(job));
    if (m_jobs.size() > 1)
        return; // the first one has woken main
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(m_event.get(), &one, sizeof one);
}

void MainQueue::drain() {
    std::vector<std::function<void()>> jobs;
    {
        const std::lock_guard lock(m_mutex);
        jobs.swap(m_jobs);
        std::uint64_t count = 0;
        [[maybe_unused]] const ssize_t read = ::read(m_event.get(), &count, sizeof count);
    }
    for (const auto& job : jobs)
        job();
}

} // namespace fv2
