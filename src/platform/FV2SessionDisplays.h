// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! The displays that a program of this session draws on, from its environment: a few bytes for isOtherSession().
[[nodiscard]] std::string sessionDisplays();

//! Whether the two have no display in common although both have one. An X11 program of a Wayland session may know only
//! one of the session's two.
[[nodiscard]] bool isOtherSession(std::string_view one, std::string_view other);

} // namespace fv2
