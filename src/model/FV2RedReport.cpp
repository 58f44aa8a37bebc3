// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2RedReport.h"

#include "logging/LogEscape.h"
#include "logging/SystemLog.h"
#include "resources/FV2TagScanner.h"

namespace fv2 {

namespace {

constexpr std::chrono::hours kAgain{1};
//! Between two lines, whatever the service says.
constexpr std::chrono::seconds kLeastPause{10};

} // namespace

void FV2RedReport::update(const FV2AppState& state, std::chrono::steady_clock::time_point now) {
    std::string reason;
    for (const FV2StatusMesssageListItem& message : state.statusMessageList)
        if (message.statusType == fv2StatusStateType::Red)
            reason += (reason.empty() ? "" : "; ") + message.Title + ": " + scanTags(message.Text).text;
    if (reason.empty() || state.overallState != fv2StatusStateType::Red)
        return;
    const auto since = m_when ? now - *m_when : kAgain;
    if (since < kLeastPause || (reason == m_told && since < kAgain))
        return;
    m_told = reason;
    m_when = now;
    systemLog(fv2SystemLogType::error, escapedForLog("The status is red. " + reason));
}

} // namespace fv2
