// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/SystemLog.h"

#include "base/ThreadAlarm.h"

#include <mutex>
#include <syslog.h>

namespace fv2 {

namespace {

int priority(fv2SystemLogType type) {
    switch (type) {
    case fv2SystemLogType::error:
        return LOG_ERR;
    case fv2SystemLogType::debug:
        return LOG_DEBUG;
    case fv2SystemLogType::info:
        break;
    }
    return LOG_INFO;
}

} // namespace

void systemLog(fv2SystemLogType type, const std::string& text) {
    static std::once_flag opened;
    std::call_once(opened, [] { ::openlog("fv2-agent", LOG_PID, LOG_USER); });
    // A journal that does not read would block its writers; the line is dropped.
    const ThreadAlarm alarm;
    ::syslog(priority(type), "%s", text.c_str());
}

} // namespace fv2
