// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! A report for whoever helps the user: lines of "name = value" in sections. It has no password, no token, and no name
//! of the user or the computer; the computer's identifier is cut to four characters. Needs an application object.
[[nodiscard]] std::string diagnosis();

} // namespace fv2
