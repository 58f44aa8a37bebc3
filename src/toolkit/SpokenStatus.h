// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace fv2 {

//! How a screen reader is told what else only a colour says: the text, then the name of its status.
[[nodiscard]] QString spokenWithStatus(const QString& text, const QString& status);

} // namespace fv2
