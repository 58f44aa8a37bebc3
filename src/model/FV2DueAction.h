// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"
#include "model/FV2RefreshCycle.h"

namespace fv2 {

//! Decides whether the action that a status calls for is carried out: once for each change, and only where the source
//! of the refresh allows it. Main thread only.
class FV2DueAction {
public:
    //! The source that counts for a refresh: the notification that follows a user's synchronisation counts as the
    //! user's own request, once.
    [[nodiscard]] static fv2SyncSource effectiveSource(const FV2RefreshOrder& order, FV2AppState& state);

    void refreshIsRequested(fv2SyncSource source) { m_startupIsUnderWay |= source == fv2SyncSource::Startup; }
    void refreshEnds(fv2SyncSource source) { m_startupIsUnderWay &= source != fv2SyncSource::Startup; }

    //! Whether the stored action is to be carried out now; from here on it is no longer required. No dialog opens over
    //! a main window that is open.
    [[nodiscard]] bool take(FV2AppState& state, bool checkAction, fv2SyncSource source, bool mainWindowOpen);

private:
    bool m_startupIsUnderWay = false;
};

} // namespace fv2
