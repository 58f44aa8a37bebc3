// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTranslated.h"

namespace fv2 {

QString translated(const QString& identifier) {
    return QString::fromStdString(translatedText(identifier.toStdString()));
}

QString translated(const QString& identifier, const OxStringBundle& bundle) {
    return QString::fromStdString(translatedText(identifier.toStdString(), bundle));
}

} // namespace fv2
