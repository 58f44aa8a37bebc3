// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace fv2 {

//! A small fixed set of threads that run jobs in the order in which they came. They are made with the first job.
class WorkerPool {
public:
    explicit WorkerPool(std::size_t threadCount)
        : m_threadCount(threadCount) {}
    ~WorkerPool() { finish(); }
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    //! Any thread. A job that comes after finish() is dropped.
    void post(std::function<void()> job);

    //! Runs the jobs that wait, then ends and joins all threads. Blocks for as long as that takes.
    void finish();

private:
    void work();

    const std::size_t m_threadCount;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    bool m_finishing = false;
    std::vector<std::thread> m_threads;
};

} // namespace fv2
