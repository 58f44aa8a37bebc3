// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <chrono>
#include <limits>

namespace fv2 {

//! A point in steady time by which something must be over.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::chrono::milliseconds fromNow)
        : m_at(Clock::now() + fromNow) {}

    [[nodiscard]] bool passed() const { return Clock::now() >= m_at; }

    //! Milliseconds left, rounded up, as poll() takes them: 0 once passed, so a wait never spins on the last fraction.
    [[nodiscard]] int pollTimeout() const {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_at - Clock::now()).count();
        return static_cast<int>(std::clamp<long long>(left, 0, std::numeric_limits<int>::max()));
    }

    [[nodiscard]] static Deadline earlier(const Deadline& a, const Deadline& b) { return a.m_at < b.m_at ? a : b; }

private:
    Clock::time_point m_at;
};

} // namespace fv2
