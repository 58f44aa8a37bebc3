// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxQtColor.h"

#include <algorithm>
#include <cmath>

namespace fv2 {

namespace {

double luminanceOf(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor toQColor(const NxRgba& colour) {
    const auto part = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(part(colour.red), part(colour.green), part(colour.blue), part(colour.alpha));
}

double contrastOf(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminanceOf(one), luminanceOf(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool isDark(const QPalette& palette) {
    return qGray(palette.color(QPalette::Window).rgb()) < qGray(palette.color(QPalette::WindowText).rgb());
}

} // namespace fv2
