// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"

#include <cerrno>
#include <semaphore.h>
#include <thread>

namespace fv2 {

//! A counting semaphore over the POSIX one: unlike std::counting_semaphore it may be signalled by any thread without
//! the lost wake-ups of g++ 12's atomic wait, and ThreadSanitizer knows it.
class CountingSemaphore {
public:
    explicit CountingSemaphore(unsigned initialCount) { ::sem_init(&m_semaphore, 0, initialCount); }
    ~CountingSemaphore() { ::sem_destroy(&m_semaphore); }
    CountingSemaphore(const CountingSemaphore&) = delete;
    CountingSemaphore& operator=(const CountingSemaphore&) = delete;

    //! Waits without time limit.
    void wait() {
        while (::sem_wait(&m_semaphore) != 0 && errno == EINTR) {
        }
    }

    //! Takes one count if there is one; never waits.
    [[nodiscard]] bool tryWait() {
        while (::sem_trywait(&m_semaphore) != 0) {
            if (errno != EINTR)
                return false;
        }
        return true;
    }

    //! Takes one count; false when there is none before the deadline. Looks every millisecond.
    [[nodiscard]] bool waitUntil(const Deadline& deadline) {
        while (!tryWait()) {
            if (deadline.passed())
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

    void signal() { ::sem_post(&m_semaphore); }

    //! The count at this moment; for tests and assertions only, as another thread may change it at once.
    [[nodiscard]] int count() const {
        int value = 0;
        ::sem_getvalue(&m_semaphore, &value);
        return value;
    }

private:
    mutable sem_t m_semaphore{};
};

//! Holds one count of a semaphore for a scope.
class SemaphoreHold {
public:
    explicit SemaphoreHold(CountingSemaphore& semaphore)
        : m_semaphore(semaphore) {
        m_semaphore.wait();
    }
    ~SemaphoreHold() { m_semaphore.signal(); }
    SemaphoreHold(const SemaphoreHold&) = delete;
    SemaphoreHold& operator=(const SemaphoreHold&) = delete;

private:
    CountingSemaphore& m_semaphore;
};

} // namespace fv2
