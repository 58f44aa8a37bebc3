// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace fv2 {

//! The appearance that the whole program has now, by name. Any thread.
class NxAppearance {
public:
    static constexpr std::string_view aqua = "aqua";
    static constexpr std::string_view dark = "dark";

    //! Any name other than the light one counts as dark, its high-contrast and vibrant variants too.
    static void setCurrent(std::string_view name);

    //! Either `aqua` or `dark`; `aqua` until somebody has said otherwise.
    [[nodiscard]] static std::string_view current();
};

} // namespace fv2
