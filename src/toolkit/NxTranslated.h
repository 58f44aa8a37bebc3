// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

#include <QString>

namespace fv2 {

//! translatedText() for what is shown by Qt: the text of an identifier, marked with "!" when there is none.
[[nodiscard]] QString translated(const QString& identifier);
[[nodiscard]] QString translated(const QString& identifier, const OxStringBundle& bundle);

} // namespace fv2
