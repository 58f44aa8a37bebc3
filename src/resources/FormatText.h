// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace fv2 {

//! The text with %1 to %9 replaced by the arguments, in one pass: what an argument holds is not looked at again, and a
//! mark without an argument stays.
[[nodiscard]] std::string formatText(std::string_view text, std::initializer_list<std::string_view> arguments);

} // namespace fv2
