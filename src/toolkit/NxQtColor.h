// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/NxRgba.h"

#include <QColor>
#include <QPalette>

namespace fv2 {

[[nodiscard]] QColor toQColor(const NxRgba& colour);

//! How well two colours can be told apart, 1 to 21, as WCAG 2 computes it.
[[nodiscard]] double contrastOf(const QColor& one, const QColor& other);

//! Whether windows are darker than their text.
[[nodiscard]] bool isDark(const QPalette& palette);

} // namespace fv2
