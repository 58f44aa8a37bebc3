// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtTimerService.h"

#include <QTimer>

#include <algorithm>

namespace fv2 {

namespace {

//! Qt counts a timer's milliseconds in 32 bits: a longer delay is waited for in pieces.
constexpr std::chrono::milliseconds kLongestPiece = std::chrono::hours(24);

class QtTimer final : public FV2Timer {
public:
    QtTimer(std::chrono::milliseconds delay, std::function<void()> callback)
        : m_left(delay)
        , m_callback(std::move(callback)) {
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout([this] { next(); });
        startPiece();
    }

private:
    void startPiece() {
        const auto piece = std::min(m_left, kLongestPiece);
        m_left -= piece;
        m_timer.start(piece);
    }

    void next() {
        if (m_left.count() > 0) {
            startPiece();
            return;
        }
        // The callback may destroy this timer and with it the function that is running.
        const std::function<void()> own = m_callback;
        own();
    }

    std::chrono::milliseconds m_left;
    std::function<void()> m_callback;
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
