// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/SystemReport.h"

#include "logging/LogEscape.h"
#include "logging/SystemLog.h"

#include <functional>
#include <mutex>
#include <set>

namespace fv2 {

namespace {

constexpr std::size_t kMostCauses = 64;
constexpr std::size_t kMostOfStrangers = 16;
constexpr std::size_t kLongestText = 500;

//! True for a cause that is new, as long as there is room for it.
bool remember(std::string_view cause, std::size_t most) {
    static std::mutex mutex;
    // Never destroyed: threads may report to the very end.
    static auto& known = *new std::set<std::size_t>();
    const std::lock_guard lock(mutex);
    return known.size() < most && known.insert(std::hash<std::string_view>()(cause)).second;
}

void tell(std::string_view text) {
    systemLog(fv2SystemLogType::error, escapedForLog(text.substr(0, kLongestText)));
}

} // namespace

void reportOnce(std::string_view cause, std::string_view text) {
    if (remember(cause, kMostCauses))
        tell(text);
}

void reportStrangerOnce(std::string_view cause, std::string_view text) {
    if (remember(cause, kMostOfStrangers))
        tell(text);
}

} // namespace fv2
