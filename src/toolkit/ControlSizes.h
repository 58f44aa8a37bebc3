// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFontMetrics>

#include <algorithm>

namespace fv2 {

//! Buttons and fields are equally high: 30 px, or more for larger letters.
[[nodiscard]] inline int controlHeight(const QFontMetrics& letters) {
    constexpr int kLeast = 30;
    constexpr int kRoom = 12; // above and below, together
    return std::max(kLeast, letters.height() + kRoom);
}

} // namespace fv2
