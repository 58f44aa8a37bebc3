// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! While it exists, interrupts every 20 ms any call that its thread is blocked in: the call returns what it has done,
//! or EINTR. Made and destroyed on one thread; may be nested. Without effect where the system has no timer left.
class ThreadAlarm {
public:
    ThreadAlarm();
    ~ThreadAlarm();
    ThreadAlarm(const ThreadAlarm&) = delete;
    ThreadAlarm& operator=(const ThreadAlarm&) = delete;
};

} // namespace fv2
