// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! The text with everything escaped that could break a log line, control a terminal or disguise the text: control
//! characters, line separators, marks of direction and characters without a width become \n, \t, \xNN or \uNNNN, bytes
//! that are no UTF-8 become \xNN. All else is unchanged.
[[nodiscard]] std::string escapedForLog(std::string_view text);

} // namespace fv2
