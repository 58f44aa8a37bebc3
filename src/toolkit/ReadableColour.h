// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPalette>

namespace fv2 {

// Text and marks in colours that depend on what is behind them, which is FV2AppConfigModel's.

//! The least contrast of text, as WCAG 2 asks for. Signs need as much as large text.
inline constexpr double kContrastOfLargeText = 3;
inline constexpr double kContrastOfText = 4.5;

//! White if its contrast to the background is at least this, otherwise near black.
[[nodiscard]] QColor readableOn(const QColor& background, double leastContrast = kContrastOfLargeText);

//! The first colour with so much of the other one, 0 to 1, in it.
[[nodiscard]] QColor mixed(const QColor& one, const QColor& other, double part);

//! Text that explains, quieter than readableOn() and still readable.
[[nodiscard]] QColor quietOn(const QColor& background);

//! Large signs that only decorate: quieter still.
[[nodiscard]] QColor faintOn(const QColor& background);

//! The palette's highlight as an area with white text in it: darkened a little where the text needs it. One that would
//! have to become another colour stays as it is, and takes black text.
[[nodiscard]] QColor fillOf(const QPalette& palette);

//! Of the mark around what has the keyboard: the palette's highlight where it can be told from the background,
//! otherwise the text's.
[[nodiscard]] QColor focusMarkOn(const QColor& background, const QPalette& palette, const QColor& text);

} // namespace fv2
