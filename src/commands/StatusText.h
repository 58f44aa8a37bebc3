// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! A status reply for people, in the user's language: the light in one line, then what the window shows.
[[nodiscard]] std::string statusText(std::string_view reply);

} // namespace fv2
