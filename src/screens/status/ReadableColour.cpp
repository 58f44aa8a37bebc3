// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/ReadableColour.h"

#include "toolkit/NxQtColor.h"

namespace fv2 {

QColor readableOn(const QColor& background, double leastContrast) {
    return contrastOf(Qt::white, background) >= leastContrast ? QColor(Qt::white) : QColor(27, 29, 32);
}

QColor focusMarkOn(const QColor& background, const QPalette& palette, const QColor& text) {
    const QColor highlight = palette.color(QPalette::Highlight);
    return contrastOf(highlight, background) >= kContrastOfLargeText ? highlight : text;
}

} // namespace fv2
