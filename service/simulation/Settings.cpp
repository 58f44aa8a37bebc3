// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Settings.h"

#include "base/Trimmed.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace fv2::service {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr double longestSeconds = 3600;

template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

bool setNumber(std::int64_t& value, std::string_view text) {
    const auto number = parseNumber<std::int64_t>(text);
    value = number.value_or(value);
    return number.has_value();
}

//! An error code that may be left out, and is never 0.
bool setErrorCode(std::int64_t& value, std::string_view text) {
    std::int64_t code = 1;
    if ((!text.empty() && !setNumber(code, text)) || code == 0)
        return false;
    value = code;
    return true;
}

bool setSeconds(std::chrono::milliseconds& value, std::string_view text) {
    const auto seconds = parseNumber<double>(text);
    if (!seconds || !(*seconds >= 0 && *seconds <= longestSeconds))
        return false;
    value = std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(*seconds));
    return true;
}

bool setState(Values& values, std::string_view rest, std::int64_t /*now*/) {
    return setNumber(values.status.state, rest);
}

bool setProgress(Values& values, std::string_view rest, std::int64_t /*now*/) {
    return setNumber(values.status.progress, rest);
}

bool setSync(Values& values, std::string_view rest, std::int64_t now) {
    const auto [word, number] = splitWord(rest);
    if (word == "last")
        return setNumber(values.status.syncLast, number);
    if (!number.empty() || (word != "start" && word != "ok" && word != "fail"))
        return false;
    values.status.syncActive = word == "start";
    if (word == "ok")
        values.status.syncLast = now;
    if (word != "start")
        values.status.syncOk = word == "ok";
    return true;
}

bool setPolicy(Values& values, std::string_view rest, std::int64_t /*now*/) {
    const auto [word, number] = splitWord(rest);
    if (word != "postpone")
        return false;
    std::int64_t minutes = 0;
    const bool none = number == "none";
    if (!none && !setNumber(minutes, number))
        return false;
    values.status.postponeMinutes = none ? std::nullopt : std::optional(minutes);
    return true;
}

bool setCredentials(Values& values, std::string_view rest, std::int64_t /*now*/) {
    const auto [word, code] = splitWord(rest);
    EngineOutcome outcome{word == "accept", 0};
    if (outcome.accepted ? !code.empty() : word != "refuse" || !setErrorCode(outcome.errorCode, code))
        return false;
    values.credentials = outcome;
    return true;
}

bool setOnSync(Values& values, std::string_view rest, std::int64_t /*now*/) {
    const auto [word, number] = splitWord(rest);
    SyncPlan plan;
    if (word == "refuse") {
        plan.end = SyncEnd::Refuse;
        if (!setErrorCode(plan.errorCode, number))
            return false;
    } else {
        plan.end = word == "ok" ? SyncEnd::Ok : SyncEnd::Fail;
        if ((word != "ok" && word != "fail") || (!number.empty() && !setSeconds(plan.duration, number)))
            return false;
    }
    values.onSync = plan;
    return true;
}

bool setFault(Values& values, std::string_view rest, std::int64_t /*now*/) {
    static constexpr std::array<std::pair<std::string_view, FaultKind>, 6> plain{{{"none", FaultKind::None},
                                                                                  {"silent", FaultKind::Silent},
                                                                                  {"garbage", FaultKind::Garbage},
                                                                                  {"half", FaultKind::Half},
                                                                                  {"close", FaultKind::Close},
                                                                                  {"endless", FaultKind::Endless}}};
    const auto [word, number] = splitWord(rest);
    ReplyFault fault;
    if (word == "slow") {
        fault.kind = FaultKind::Slow;
        if (!setSeconds(fault.delay, number))
            return false;
    } else if (word == "error") {
        fault.kind = FaultKind::Error;
        if (!setErrorCode(fault.errorCode, number))
            return false;
    } else {
        const auto known = std::ranges::find(plain, word, &std::pair<std::string_view, FaultKind>::first);
        if (known == plain.end() || !number.empty())
            return false;
        fault.kind = known->second;
    }
    values.fault = fault;
    return true;
}

bool setVersion(Values& values, std::string_view rest, std::int64_t /*now*/) {
    values.status.version = rest;
    return true;
}

bool setUuid(Values& values, std::string_view rest, std::int64_t /*now*/) {
    values.status.uuid = rest;
    return true;
}

struct Setting {
    std::string_view word;
    bool (*apply)(Values&, std::string_view rest, std::int64_t now);
    std::string_view form;
    std::string_view meaning;
};

constexpr std::array<Setting, 9> settings{{
    {"state", setState, "state N",
     "1 not encrypted, 3 wants the password, 4 initialising, 5 encrypting, 6 encrypted, ..."},
    {"progress", setProgress, "progress N", "percent"},
    {"sync", setSync, "sync start|ok|fail|last SECONDS", "the synchronisation, and its time since 1970 (0: never)"},
    {"version", setVersion, "version TEXT", "of the service"},
    {"uuid", setUuid, "uuid TEXT", "of the machine"},
    {"policy", setPolicy, "policy postpone MINUTES|none", "how long the password may be postponed; none: no policy"},
    {"credentials", setCredentials, "credentials accept|refuse [CODE]", "what the next credentials meet"},
    {"onsync", setOnSync, "onsync ok|fail [SECONDS] | refuse [CODE]", "what a request to synchronise leads to"},
    {"fault", setFault, "fault none|silent|slow SECONDS|garbage|half|close|endless|error [CODE]",
     "how new connections are treated"},
}};

std::string describeSyncPlan(const SyncPlan& plan) {
    if (plan.end == SyncEnd::Refuse)
        return "onsync refuse " + std::to_string(plan.errorCode);
    // Written as the pause of a slow reply is.
    const std::string pause = faultText({FaultKind::Slow, plan.duration, 0});
    return std::string("onsync ") + (plan.end == SyncEnd::Ok ? "ok" : "fail") + pause.substr(pause.find(' '));
}

} // namespace

std::pair<std::string_view, std::string_view> splitWord(std::string_view line) {
    line = trimmed(line, blanks);
    const std::size_t end = std::min(line.find_first_of(blanks), line.size());
    return {line.substr(0, end), trimmed(line.substr(end), blanks)};
}

std::string applySetting(Values& values, std::string_view line, std::int64_t epochSeconds) {
    const auto [word, rest] = splitWord(line);
    const auto setting = std::ranges::find(settings, word, &Setting::word);
    if (setting == settings.end())
        return "unknown line";
    return setting->apply(values, rest, epochSeconds) ? "" : "wanted: " + std::string(setting->form);
}

std::vector<std::string> describe(const Values& values) {
    const EngineStatus& status = values.status;
    return {
        "state " + std::to_string(status.state),
        "progress " + std::to_string(status.progress),
        status.syncActive ? "sync start"
        : status.syncOk   ? "sync ok"
                          : "sync fail",
        "sync last " + std::to_string(status.syncLast),
        "version " + status.version,
        "uuid " + status.uuid,
        "policy postpone " + (status.postponeMinutes ? std::to_string(*status.postponeMinutes) : "none"),
        values.credentials.accepted ? "credentials accept"
                                    : "credentials refuse " + std::to_string(values.credentials.errorCode),
        describeSyncPlan(values.onSync),
        "fault " + faultText(values.fault),
    };
}

std::vector<std::pair<std::string_view, std::string_view>> settingsHelp() {
    std::vector<std::pair<std::string_view, std::string_view>> help;
    help.reserve(settings.size());
    for (const Setting& setting : settings)
        help.emplace_back(setting.form, setting.meaning);
    return help;
}

} // namespace fv2::service
