// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/ReadableColour.h"

#include <cmath>

namespace fv2 {

namespace {

double linear(double component) {
    return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor readableOn(const QColor& background) {
    const double contrastOfWhite = 1.05 / (luminance(background) + 0.05);
    return contrastOfWhite >= 3 ? QColor(Qt::white) : QColor(27, 29, 32);
}

} // namespace fv2
