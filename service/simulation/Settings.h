// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "simulation/Values.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fv2::service {

//! Carries out a line such as "state 5" or "sync fail". Empty when done; otherwise what was wrong, and nothing changed.
//! `epochSeconds` is the time that a successful synchronisation gets.
[[nodiscard]] std::string applySetting(Values& values, std::string_view line, std::int64_t epochSeconds);

//! The values as the lines that would set them, always as many and in the same order.
[[nodiscard]] std::vector<std::string> describe(const Values& values);

//! Each line's form and its meaning.
[[nodiscard]] std::vector<std::pair<std::string_view, std::string_view>> settingsHelp();

//! The first word of `line`, and the rest without the blanks around it.
[[nodiscard]] std::pair<std::string_view, std::string_view> splitWord(std::string_view line);

} // namespace fv2::service
