// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ports/FV2TimerService.h"

namespace fv2 {

//! Timers in Qt's event loop by a clock that goes on while the computer sleeps: what became due meanwhile is called
//! right after. Main thread only.
class FV2QtTimerService final : public FV2TimerService {
public:
    [[nodiscard]] std::chrono::steady_clock::time_point now() const override;
    [[nodiscard]] std::unique_ptr<FV2Timer> after(std::chrono::milliseconds delay,
                                                  std::function<void()> callback) override;
};

} // namespace fv2
