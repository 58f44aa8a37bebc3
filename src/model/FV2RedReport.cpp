// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2RedReport.h"

#include "logging/LogEscape.h"
#include "logging/SystemLog.h"
#include "resources/FV2TagScanner.h"

#include <algorithm>

namespace fv2 {

namespace {

//! By which the journal finds these lines, whatever the language.
constexpr std::string_view kMessageId = "dbadef985227494dae8046ea946803d0";
constexpr std::chrono::hours kAgain{1};
//! Whatever the service says, five lines at once and then one in ten seconds.
constexpr std::chrono::seconds kLeastPause{10};
constexpr std::chrono::seconds kMostAhead{40};
constexpr std::size_t kMost = 2000; //!< bytes

} // namespace

void FV2RedReport::update(const FV2AppState& state, std::chrono::steady_clock::time_point now) {
    std::string reason;
    for (const FV2StatusMesssageListItem& message : state.statusMessageList)
        if (message.statusType == fv2StatusStateType::Red)
            reason += (reason.empty() ? "" : "; ") + message.Title + ": " + textWithoutLinks(message.Text);
    if (reason.empty() || state.overallState != fv2StatusStateType::Red) {
        m_told.clear();
        return;
    }
    if ((reason == m_told && now - m_when < kAgain) || m_paidUntil > now + kMostAhead)
        return;
    m_told = reason;
    m_when = now;
    m_paidUntil = std::max(m_paidUntil, now) + kLeastPause;
    systemLog(fv2SystemLogType::error,
              escapedForLog("The status is red (state " + std::to_string(state.serviceState) + "). " +
                            reason.substr(0, kMost)),
              kMessageId);
}

} // namespace fv2
