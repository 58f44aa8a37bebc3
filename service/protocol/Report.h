// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string_view>

namespace fv2::service {

//! Takes one line about something that happened. Never given a password or a token.
using Report = std::function<void(std::string_view)>;

} // namespace fv2::service
