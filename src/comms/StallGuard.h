// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/ThreadAlarm.h"

#include <optional>

namespace fv2 {

//! While it lives, whatever the kernel makes its thread wait for is cut short after 20 ms. For receiving from and
//! closing a socket, which wait for nothing by themselves: but a message may carry a descriptor, which is closed with
//! it, and whoever sent it decides how long that takes. Where the kernel refuses such messages for us this does
//! nothing. Made and destroyed on the same thread.
class StallGuard {
public:
    StallGuard();

    //! Has the kernel refuse messages with descriptors to this socket and to those that it accepts (Linux 6.16 and
    //! later).
    static void refuseDescriptors(int socket);

private:
    std::optional<ThreadAlarm> m_alarm;
};

} // namespace fv2
