// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/LastSynchronisation.h"

#include "toolkit/NxTranslated.h"

namespace fv2 {

QString lastSynchronisation(const FV2AppState& state) {
    if (!state.syncORMEnabled)
        return translated(QStringLiteral("IDUS_UNKNOWN"));
    if (!state.syncORMActive)
        return QString::fromStdString(state.lastORMSync);
    return state.syncORMBlocked ? translated(QStringLiteral("IDUS_MGUI_LAST_SYNC_BLOCKED"))
                                : translated(QStringLiteral("IDUS_MGUI_LAST_SYNC_ACTIVE"));
}

} // namespace fv2
