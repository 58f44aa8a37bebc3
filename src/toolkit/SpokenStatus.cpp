// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/SpokenStatus.h"

#include "toolkit/NxTranslated.h"

namespace fv2 {

QString spokenWithStatus(const QString& text, const QString& status) {
    return text + QStringLiteral(", ") + translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE")) + u' ' +
           status;
}

} // namespace fv2
