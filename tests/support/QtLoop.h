// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"

#include <QCoreApplication>
#include <QTimer>

#include <functional>

namespace fv2::test {

//! Runs the event loop until `done` holds, 5 s at most; tells whether it does.
inline bool runLoopUntil(const std::function<bool()>& done) {
    QTimer tick; // wakes a loop in which nothing else happens
    tick.start(5);
    for (const Deadline deadline(std::chrono::seconds(5)); !done() && !deadline.passed();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return done();
}

//! Runs the event loop for a time in which something must not happen.
inline void runLoopFor(std::chrono::milliseconds time) {
    runLoopUntil([deadline = Deadline(time)] { return deadline.passed(); });
}

} // namespace fv2::test
