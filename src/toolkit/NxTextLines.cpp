// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextLines.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <algorithm>

namespace fv2 {

double overhangOf(const QTextLayout& layout) {
    const QFontMetrics metrics(layout.font());
    return std::max(0, -metrics.tightBoundingRect(layout.text()).top() - metrics.ascent());
}

QSizeF layOutLines(QTextLayout& layout, double width, double overhang, double leastLineHeight) {
    QSizeF size(0, overhang);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool isFirst = layout.lineCount() == 1;
        const double height = isFirst ? line.height() : std::max(line.height(), leastLineHeight);
        line.setPosition({0, size.height() + height - line.height()});
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + height};
    }
    layout.endLayout();
    return size;
}

} // namespace fv2
