// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ComputerName.h"

#include <array>
#include <fstream>
#include <string_view>
#include <unistd.h>

namespace fv2 {

namespace {

//! The value of a shell-like assignment: one pair of quotes taken off, a backslash makes the next character plain.
std::string unquoted(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size())
            ++i;
        out += value[i];
    }
    return out;
}

} // namespace

std::string computerName(const std::string& machineInfoPath) {
    constexpr std::string_view key = "PRETTY_HOSTNAME=";
    std::ifstream info(machineInfoPath);
    for (std::string line; std::getline(info, line);) {
        std::string name = line.starts_with(key) ? unquoted(std::string_view(line).substr(key.size())) : std::string();
        if (!name.empty())
            return name;
    }
    std::array<char, 256> host{};
    return ::gethostname(host.data(), host.size() - 1) == 0 ? host.data() : std::string();
}

} // namespace fv2
