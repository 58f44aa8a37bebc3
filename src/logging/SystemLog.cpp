// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/SystemLog.h"

#include "base/ThreadAlarm.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <dlfcn.h>
#include <mutex>
#include <sys/uio.h>
#include <syslog.h>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr const char* kIdentifier = "fv2-agent";
constexpr const char* kJournal = "/run/systemd/journal/socket";
//! As long as no line takes that is not interrupted.
constexpr std::chrono::milliseconds kStall{20};
constexpr std::chrono::seconds kJournalPause{1};

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

using Clock = std::chrono::steady_clock;
using SendToJournal = int (*)(const iovec* fields, int count);

//! libsystemd's; null where there is no journal. The library is loaded with the first line, and most runs write none;
//! the session bus's library has loaded it by then wherever there is systemd.
SendToJournal sendToJournal() {
    if (::access(kJournal, F_OK) != 0)
        return nullptr;
    static const auto send = [] {
        void* const library = ::dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
        return library == nullptr ? nullptr : reinterpret_cast<SendToJournal>(::dlsym(library, "sd_journal_sendv"));
    }();
    return send;
}

//! False where there turns out to be no journal.
bool tellJournal(SendToJournal send, int level, const std::string& text, std::string_view messageId) {
    std::array<std::string, 4> fields{"MESSAGE=" + text, "PRIORITY=" + std::to_string(level),
                                      std::string("SYSLOG_IDENTIFIER=") + kIdentifier,
                                      "MESSAGE_ID=" + std::string(messageId)};
    std::array<iovec, 4> parts{};
    for (std::size_t i = 0; i < fields.size(); ++i)
        parts.at(i) = {fields.at(i).data(), fields.at(i).size()};
    const int result = send(parts.data(), messageId.empty() ? 3 : 4);
    return result == 0 || result == -EINTR;
}

} // namespace

void systemLog(fv2SystemLogType type, const std::string& text, std::string_view messageId) {
    static std::once_flag opened;
    std::call_once(opened, [] { ::openlog(kIdentifier, LOG_PID, LOG_USER); });
    const SendToJournal send = sendToJournal();
    static std::atomic<Clock::time_point> pauseEnds;
    const Clock::time_point begin = Clock::now();
    if (type != fv2SystemLogType::error && begin < pauseEnds.load())
        return;
    // A journal that does not read would block its writers.
    const ThreadAlarm alarm;
    if (send == nullptr || !tellJournal(send, priority(type), text, messageId))
        ::syslog(priority(type), "%s", text.c_str());
    if (const Clock::time_point end = Clock::now(); end - begin >= kStall)
        pauseEnds = end + kJournalPause;
}

} // namespace fv2
