// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/FV2LoggingLevel.h"

#include "base/Trimmed.h"

#include <algorithm>
#include <array>

namespace fv2 {

namespace {

struct NamedLevel {
    FV2LoggingLevel level;
    std::string_view name;
};

constexpr std::array<NamedLevel, 4> kMembers{{
    {FV2LoggingLevel::trace, "trace"},
    {FV2LoggingLevel::ui, "ui"},
    {FV2LoggingLevel::error, "error"},
    {FV2LoggingLevel::release, "release"},
}};

} // namespace

std::string_view FV2LoggingLevel::text() const {
    const auto* member =
        std::find_if(kMembers.begin(), kMembers.end(), [this](const NamedLevel& m) { return m.level == *this; });
    return member == kMembers.end() ? "unknown" : member->name;
}

ParsedLogLevels parseLogLevels(std::string_view list) {
    ParsedLogLevels parsed;
    while (!list.empty()) {
        const auto comma = list.find(',');
        const std::string_view word = trimmed(list.substr(0, comma), " \t");
        list = comma == std::string_view::npos ? std::string_view{} : list.substr(comma + 1);
        const auto* member =
            std::find_if(kMembers.begin(), kMembers.end(), [word](const NamedLevel& m) { return m.name == word; });
        if (member != kMembers.end()) {
            parsed.levels.insert(member->level);
        } else if (word == "all") {
            for (const NamedLevel& each : kMembers)
                parsed.levels.insert(each.level);
        } else if (!word.empty()) {
            parsed.unknownWords.emplace_back(word);
        }
    }
    return parsed;
}

} // namespace fv2
