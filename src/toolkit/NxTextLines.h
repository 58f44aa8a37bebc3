// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>

#include <cstddef>

class QTextLayout;

namespace fv2 {

//! A text that may be wrapped is as wide as so many letters if there is room for them, and never narrower than so few.
inline constexpr int kComfortableLetters = 60;
inline constexpr int kFewestLetters = 6;
//! From one line to the next, in heights of the font.
inline constexpr double kLineHeight = 1.2;
//! For so many widths a text remembers how high it was.
inline constexpr std::size_t kRememberedWidths = 8;

//! How far accents of a text's capitals stand out above what its font says of its lines, in pixels.
[[nodiscard]] double overhangOf(const QTextLayout& layout);

//! Lays out all lines of a text below one another, no wider than given and below the overhang, and tells the size that
//! they take. From the second one on they are at least so high. Main thread only.
QSizeF layOutLines(QTextLayout& layout, double width, double overhang, double leastLineHeight);

} // namespace fv2
