// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/ReadableColour.h"

#include "toolkit/NxQtColor.h"

namespace fv2 {

QColor readableOn(const QColor& background, double leastContrast) {
    return contrastOf(Qt::white, background) >= leastContrast ? QColor(Qt::white) : QColor(27, 29, 32);
}

QColor mixed(const QColor& one, const QColor& other, double part) {
    const auto channel = [part](float from, float to) { return static_cast<float>(from + (to - from) * part); };
    return QColor::fromRgbF(channel(one.redF(), other.redF()), channel(one.greenF(), other.greenF()),
                            channel(one.blueF(), other.blueF()));
}

QColor quietOn(const QColor& background) {
    return mixed(readableOn(background, kContrastOfText), background, 0.3);
}

QColor faintOn(const QColor& background) {
    return mixed(readableOn(background, kContrastOfText), background, 0.48);
}

QColor fillOf(const QPalette& palette) {
    constexpr int kMost = 30; // percent
    const QColor highlight = palette.color(QPalette::Highlight);
    for (int part = 0; part <= kMost; part += 2)
        if (const QColor darker = mixed(highlight, Qt::black, part / 100.0);
            contrastOf(Qt::white, darker) >= kContrastOfText)
            return darker;
    return highlight;
}

QColor focusMarkOn(const QColor& background, const QPalette& palette, const QColor& text) {
    const QColor highlight = palette.color(QPalette::Highlight);
    return contrastOf(highlight, background) >= kContrastOfLargeText ? highlight : text;
}

} // namespace fv2
