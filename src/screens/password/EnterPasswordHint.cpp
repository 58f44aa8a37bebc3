// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/EnterPasswordHint.h"

#include "toolkit/NxTranslated.h"

namespace fv2 {

QString EnterPasswordHint::text() const {
    if (isChecking)
        return translated(QStringLiteral("IDUS_PASSWORDDIALOG_CHECKING"));
    if (waitsForUser)
        return translated(QStringLiteral("IDUS_PASSWORDDIALOG_MOVE_IN"));
    if (wasRefused)
        return translated(QStringLiteral("IDUS_PASSWORDDIALOG_REFUSED"));
    if (capsLockIsOn)
        return translated(QStringLiteral("IDUS_PASSWORDDIALOG_CAPS_LOCK"));
    return {};
}

QString EnterPasswordHint::sign() const {
    if (isChecking)
        return {};
    if (waitsForUser)
        return QStringLiteral("talvik_about_template");
    if (wasRefused)
        return QStringLiteral("warning_template");
    return capsLockIsOn ? QStringLiteral("caps_lock_template") : QString();
}

} // namespace fv2
