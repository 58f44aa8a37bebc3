// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

namespace fv2 {

//! White for large text where it can be read on the background (contrast of at least 3:1 as WCAG 2 computes it),
//! otherwise a near black.
[[nodiscard]] QColor readableOn(const QColor& background);

} // namespace fv2
