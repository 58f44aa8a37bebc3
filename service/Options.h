// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace fv2::service {

struct Options {
    std::string socket = "/tmp/orm_ui.sock";
    std::string agentSocketFolder = "/tmp";
    std::optional<std::string> scenario;
    bool help = false;
};

//! The options of a command line (without the program's name), or what is wrong with it.
[[nodiscard]] std::variant<Options, std::string> readOptions(std::span<const char* const> arguments);

[[nodiscard]] std::string_view usage();

} // namespace fv2::service
