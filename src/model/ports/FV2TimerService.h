// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace fv2 {

//! One pending call; destroying it cancels the call.
class FV2Timer {
public:
    virtual ~FV2Timer() = default;
};

//! Main thread only, where nothing else is said.
class FV2TimerService {
public:
    virtual ~FV2TimerService() = default;
    //! Any thread.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point now() const = 0;
    //! Calls `callback` once after `delay`, unless the timer is destroyed before. The callback may destroy its timer.
    [[nodiscard]] virtual std::unique_ptr<FV2Timer> after(std::chrono::milliseconds delay,
                                                          std::function<void()> callback) = 0;
};

} // namespace fv2
