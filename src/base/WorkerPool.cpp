// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/WorkerPool.h"

#include <system_error>

namespace fv2 {

bool WorkerPool::post(std::function<void()> job) {
    const std::lock_guard lock(m_mutex);
    if (m_finishing)
        return true;
    m_jobs.push_back(std::move(job));
    m_changed.notify_one();
    return makeThreadsLocked();
}

bool WorkerPool::makeThreads() {
    const std::lock_guard lock(m_mutex);
    return m_finishing || makeThreadsLocked();
}

bool WorkerPool::makeThreadsLocked() {
    try {
        while (m_threads.size() < m_threadCount)
            m_threads.emplace_back([this] { work(); });
    } catch (const std::system_error&) { // no thread left; the existing ones do the work
    }
    return !m_threads.empty();
}

void WorkerPool::work() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_finishing || !m_jobs.empty(); });
        if (m_jobs.empty()) {
            ++m_ended;
            m_changed.notify_all();
            return;
        }
        {
            const std::function<void()> job = std::move(m_jobs.front());
            m_jobs.pop_front();
            lock.unlock();
            job();
        }
        lock.lock();
    }
}

WorkerPool::~WorkerPool() {
    takeNoMore();
    join();
}

bool WorkerPool::finish(const Deadline& deadline) {
    takeNoMore();
    {
        std::unique_lock lock(m_mutex);
        const std::chrono::milliseconds left(deadline.pollTimeout());
        if (!m_changed.wait_for(lock, left, [this] { return m_ended == m_threads.size(); }))
            return false;
    }
    join();
    return true;
}

void WorkerPool::takeNoMore() {
    const std::lock_guard lock(m_mutex);
    m_finishing = true;
    m_changed.notify_all();
}

void WorkerPool::join() {
    for (std::thread& thread : m_threads) // nobody adds one any more
        thread.join();
    m_threads.clear();
    m_ended = 0;
}

} // namespace fv2
