// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtTimerService.h"

#include <QTimer>

namespace fv2 {

namespace {

class QtTimer final : public FV2Timer {
public:
    QtTimer(std::chrono::milliseconds delay, std::function<void()> callback) {
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout([callback = std::move(callback)] {
            // The callback may destroy this timer and with it the function that is running.
            const std::function<void()> own = callback;
            own();
        });
        m_timer.start(delay);
    }

private:
    QTimer m_timer;
};

} // namespace

std::chrono::steady_clock::time_point FV2QtTimerService::now() const {
    return std::chrono::steady_clock::now();
}

std::unique_ptr<FV2Timer> FV2QtTimerService::after(std::chrono::milliseconds delay, std::function<void()> callback) {
    return std::make_unique<QtTimer>(delay, std::move(callback));
}

} // namespace fv2
