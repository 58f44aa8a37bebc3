// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>

class QTextLayout;

namespace fv2 {

//! How far accents of a text's capitals stand out above what its font says of its lines, in pixels.
[[nodiscard]] double overhangOf(const QTextLayout& layout);

//! Lays out all lines of a text below one another, no wider than given and below the overhang, and tells the size that
//! they take. Main thread only.
QSizeF layOutLines(QTextLayout& layout, double width, double overhang, double leastLineHeight = 0);

} // namespace fv2
