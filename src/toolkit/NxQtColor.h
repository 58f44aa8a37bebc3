// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/NxRgba.h"

#include <QColor>

#include <algorithm>

namespace fv2 {

[[nodiscard]] inline QColor toQColor(const NxRgba& colour) {
    const auto part = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(part(colour.red), part(colour.green), part(colour.blue), part(colour.alpha));
}

} // namespace fv2
