// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>

namespace fv2 {

//! Turns SIGTERM, SIGINT and SIGHUP into one call on the main thread, and keeps SIGPIPE from ending the process.
//! Handlers are used, not a blocked mask or SIG_IGN: those would be inherited by programs that we start. One object a
//! process.
class FV2UnixSignals {
public:
    //! From here on the signals no longer end the process at once; they are remembered until onTerminate() names a
    //! listener. A process still running 900 ms after one is ended, except in sanitizer builds.
    FV2UnixSignals();

    //! Raised by those signals; for waits before there is an event loop.
    [[nodiscard]] static std::shared_ptr<const StopSignal> raised();

    //! Calls `terminate` once from the event loop of this thread.
    void onTerminate(std::function<void()> terminate);

private:
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace fv2
