// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Notifier.h"

#include <charconv>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace fv2::service {

namespace {

constexpr unsigned absencesUntilForgotten = 3;
constexpr std::string_view socketPrefix = "ormfv2_ui_";
constexpr std::string_view socketSuffix = ".sock";

//! The user in the name of an agent's socket.
std::optional<uid_t> userOf(std::string_view fileName) {
    if (!fileName.starts_with(socketPrefix) || !fileName.ends_with(socketSuffix))
        return std::nullopt;
    const std::string_view digits =
        fileName.substr(socketPrefix.size(), fileName.size() - socketPrefix.size() - socketSuffix.size());
    uid_t uid = 0;
    const auto read = std::from_chars(digits.begin(), digits.end(), uid);
    return read.ec == std::errc() && read.ptr == digits.end() ? std::optional(uid) : std::nullopt;
}

} // namespace

Notifier::Notifier(std::string agentSocketFolder, const Limits& limits, Report report)
    : m_folder(std::move(agentSocketFolder))
    , m_limits(limits)
    , m_report(std::move(report)) {
}

void Notifier::announce() {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder, error)) {
        const auto uid = userOf(entry.path().filename().string());
        struct stat file {};
        if (uid && ::lstat(entry.path().c_str(), &file) == 0 && S_ISSOCK(file.st_mode) && file.st_uid == *uid)
            subscribe(*uid);
    }
    notifyAll();
}

void Notifier::subscribe(uid_t uid) {
    m_subscribers[uid].absences = 0;
}

void Notifier::unsubscribe(uid_t uid) {
    m_subscribers.erase(uid);
}

void Notifier::notifyAll() {
    for (auto& [uid, subscriber] : m_subscribers) {
        if (subscriber.push)
            subscriber.again = true;
        else
            begin(uid, subscriber);
    }
}

void Notifier::begin(uid_t uid, Subscriber& subscriber) const {
    subscriber.push.emplace(
        uid, m_folder + "/" + std::string(socketPrefix) + std::to_string(uid) + std::string(socketSuffix),
        m_limits.push);
}

void Notifier::prepare(PollSet& set) const {
    for (const auto& [uid, subscriber] : m_subscribers) {
        if (subscriber.push)
            subscriber.push->prepare(set);
    }
}

void Notifier::handle(const PollSet& /*set*/) {
    for (auto entry = m_subscribers.begin(); entry != m_subscribers.end();) {
        const bool stays = !entry->second.push || advance(entry->first, entry->second);
        entry = stays ? std::next(entry) : m_subscribers.erase(entry);
    }
}

bool Notifier::advance(uid_t uid, Subscriber& subscriber) {
    const PushResult result = subscriber.push->advance();
    if (result == PushResult::Pending)
        return true;
    const std::string user = "uid " + std::to_string(uid);
    m_report("pushed to " + user + ": " +
             (result == PushResult::Answered ? "answered" : "failed, " + subscriber.push->problem()));
    subscriber.absences = result == PushResult::NoAgent ? subscriber.absences + 1 : 0;
    subscriber.push.reset();
    if (subscriber.absences >= absencesUntilForgotten) {
        m_report("forgot " + user);
        return false;
    }
    if (std::exchange(subscriber.again, false))
        begin(uid, subscriber);
    return true;
}

} // namespace fv2::service
