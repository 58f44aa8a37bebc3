// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/SystemLog.h"

#include "base/ThreadAlarm.h"

#include <array>
#include <dlfcn.h>
#include <mutex>
#include <sys/uio.h>
#include <syslog.h>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr const char* kIdentifier = "fv2-agent";
constexpr const char* kJournal = "/run/systemd/journal/socket";

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

using SendToJournal = int (*)(const iovec* fields, int count);

//! libsystemd's, or null. It is loaded with the first line, and most runs write none; the session bus's library has
//! loaded it by then wherever there is systemd.
SendToJournal sendToJournal() {
    static const auto send = [] {
        void* const library = ::dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
        return library == nullptr ? nullptr : reinterpret_cast<SendToJournal>(::dlsym(library, "sd_journal_sendv"));
    }();
    return send;
}

bool tellJournal(int level, const std::string& text) {
    const SendToJournal send = ::access(kJournal, F_OK) == 0 ? sendToJournal() : nullptr;
    if (send == nullptr)
        return false;
    std::array<std::string, 3> fields{"MESSAGE=" + text, "PRIORITY=" + std::to_string(level),
                                      std::string("SYSLOG_IDENTIFIER=") + kIdentifier};
    std::array<iovec, 3> parts{};
    for (std::size_t i = 0; i < fields.size(); ++i)
        parts.at(i) = {fields.at(i).data(), fields.at(i).size()};
    return send(parts.data(), static_cast<int>(parts.size())) == 0;
}

} // namespace

void systemLog(fv2SystemLogType type, const std::string& text) {
    static std::once_flag opened;
    std::call_once(opened, [] { ::openlog(kIdentifier, LOG_PID, LOG_USER); });
    // A journal that does not read would block its writers; the line is dropped.
    const ThreadAlarm alarm;
    if (!tellJournal(priority(type), text))
        ::syslog(priority(type), "%s", text.c_str());
}

} // namespace fv2
