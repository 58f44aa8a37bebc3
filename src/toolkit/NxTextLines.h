// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>

class QTextLayout;

namespace fv2 {

//! Lays out all lines of a text below one another, no wider than given, and tells the size that they take. The first
//! one leaves room for accents of capitals that stand out above what the font says of its lines. Main thread only.
QSizeF layOutLines(QTextLayout& layout, double width, double leastLineHeight = 0);

} // namespace fv2
