// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! A colour by its sRGB components, each from 0 to 1.
struct NxRgba {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    //! From components on a scale of 0 to 255.
    [[nodiscard]] static constexpr NxRgba from255(int red, int green, int blue, int alpha = 255) {
        return {red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0};
    }

    friend constexpr bool operator==(const NxRgba&, const NxRgba&) = default;
};

} // namespace fv2
