// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! A colour; every part from 0 to 1, alpha 1 is opaque.
struct NxRgba {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    [[nodiscard]] static constexpr NxRgba from255(int r, int g, int b, int a = 255) {
        return {r / 255.0, g / 255.0, b / 255.0, a / 255.0};
    }
    friend bool operator==(const NxRgba&, const NxRgba&) = default;
};

} // namespace fv2
