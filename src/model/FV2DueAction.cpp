// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2DueAction.h"

#include "logging/FV2Logging.h"

#include <utility>

namespace fv2 {

fv2SyncSource FV2DueAction::effectiveSource(const FV2RefreshOrder& order, FV2AppState& state) {
    logRelease("syncCommsAsync -> source is ", caseName(order.source));
    if (order.source != fv2SyncSource::Service) {
        logRelease("syncCommsAsync -> source was not .Service");
        return order.source;
    }
    if (!order.pushed || !state.syncORMUserInitiated) {
        logRelease("syncCommsAsync -> not user initiated proxy sync");
        return order.source;
    }
    logRelease("syncCommsAsync -> handling. user initiated proxy sync");
    state.syncORMUserInitiated = false;
    return fv2SyncSource::User;
}

bool FV2DueAction::take(FV2AppState& state, bool checkAction, fv2SyncSource source, bool mainWindowOpen) {
    const bool sourceAllows = source == fv2SyncSource::Startup || source == fv2SyncSource::User ||
                              (source == fv2SyncSource::Service && !mainWindowOpen);
    // A refresh that may not act leaves the first action to a running start-up refresh.
    const bool isKept = m_startupIsUnderWay && !sourceAllows;
    const bool actionRequired = std::exchange(state.isActionRequired, state.isActionRequired && isKept);
    if (!sourceAllows) {
        logRelease("appModel->updateFromModel -> not checked for action required due to source");
        return false;
    }
    logRelease("appModel->updateFromModel -> may need to perform action");
    const bool isDue = checkAction && actionRequired;
    if (!isDue)
        logRelease("appModel->updateFromModel -> no action required");
    return isDue;
}

} // namespace fv2
