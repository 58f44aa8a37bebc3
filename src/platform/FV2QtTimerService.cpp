// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtTimerService.h"

#include "base/UniqueFd.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <optional>
#include <sys/timerfd.h>

namespace fv2 {

namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::seconds;

//! Qt's own timers count milliseconds in 32 bits, and not while the computer sleeps: one of theirs, which stands in
//! where the system has no descriptor left, looks at the clock this often.
constexpr milliseconds kLongestPiece = std::chrono::minutes(1);

std::chrono::steady_clock::time_point bootTime() {
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::steady_clock::time_point(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

UniqueFd startedTimer(milliseconds delay) {
    UniqueFd fd(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    const auto whole = std::chrono::floor<seconds>(delay);
    itimerspec time{};
    time.it_value.tv_sec = whole.count();
    // All zero would mean never.
    time.it_value.tv_nsec = std::max<long>(nanoseconds(delay - whole).count(), 1);
    if (fd && ::timerfd_settime(fd.get(), 0, &time, nullptr) != 0)
        fd.reset();
    return fd;
}

class QtTimer final : public FV2Timer {
public:
    QtTimer(milliseconds delay, std::function<void()> callback)
        : m_end(bootTime() + delay)
        , m_callback(std::move(callback))
        , m_fd(startedTimer(delay)) {
        if (m_fd) {
            m_notifier.emplace(m_fd.get(), QSocketNotifier::Read);
            QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] { call(); });
        } else {
            m_pieces.setSingleShot(true);
            m_pieces.callOnTimeout([this] { endPiece(); });
            m_pieces.start(std::min(delay, kLongestPiece));
        }
    }

private:
    void endPiece() {
        const auto left = std::chrono::ceil<milliseconds>(m_end - bootTime());
        if (left.count() > 0)
            m_pieces.start(std::min(left, kLongestPiece));
        else
            call();
    }

    void call() {
        if (m_notifier)
            m_notifier->setEnabled(false); // the descriptor stays readable
        // The callback may destroy this timer and with it the function that is running.
        const std::function<void()> own = m_callback;
        own();
    }

    const std::chrono::steady_clock::time_point m_end;
    std::function<void()> m_callback;
    UniqueFd m_fd;
    std::optional<QSocketNotifier> m_notifier;
    QTimer m_pieces;
};

} // namespace

std::chrono::steady_clock::time_point FV2QtTimerService::now() const {
    return bootTime();
}

std::unique_ptr<FV2Timer> FV2QtTimerService::after(milliseconds delay, std::function<void()> callback) {
    return std::make_unique<QtTimer>(delay, std::move(callback));
}

} // namespace fv2
