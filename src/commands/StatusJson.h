// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! A status reply for programs, as docs/status.schema.json describes it: one object, and a line feed.
[[nodiscard]] std::string statusJson(std::string_view reply);

} // namespace fv2
