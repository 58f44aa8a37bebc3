// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! For as long as it lives, interrupts every 20 ms whatever call its thread waits in: the call returns what it has
//! done, or EINTR. Made and destroyed on one thread, also one inside another. Without effect where the system has no
//! timer left.
class ThreadAlarm {
public:
    ThreadAlarm();
    ~ThreadAlarm();
    ThreadAlarm(const ThreadAlarm&) = delete;
    ThreadAlarm& operator=(const ThreadAlarm&) = delete;
};

} // namespace fv2
