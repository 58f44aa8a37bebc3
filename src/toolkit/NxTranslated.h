// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

#include <QString>

namespace fv2 {

//! The application's text of an identifier; marked with "!" when there is none.
[[nodiscard]] inline QString translated(const QString& identifier) {
    return QString::fromStdString(OxTranslatedString::translateOrMarkID(identifier.toStdString()).string());
}

} // namespace fv2
