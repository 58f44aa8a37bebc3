// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace fv2 {

//! A small fixed set of threads that run jobs in order. They are created with the first job; those that the system
//! refuses then, with a later one.
class WorkerPool {
public:
    explicit WorkerPool(std::size_t threadCount)
        : m_threadCount(threadCount) {}
    //! Waits for all jobs.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    //! Any thread. A job that comes after finish() is dropped. False when no thread could be made: the job waits.
    bool post(std::function<void()> job);

    //! Any thread. Makes the threads that are missing; false while there is none at all.
    [[nodiscard]] bool makeThreads();

    //! Runs the jobs that wait, then ends and joins all threads. False when that takes too long: some threads still
    //! run.
    bool finish(const Deadline& deadline);

private:
    void work();
    [[nodiscard]] bool makeThreadsLocked();
    void takeNoMore();
    void join();

    const std::size_t m_threadCount;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    bool m_finishing = false;
    std::size_t m_ended = 0;
    std::vector<std::thread> m_threads;
};

} // namespace fv2
