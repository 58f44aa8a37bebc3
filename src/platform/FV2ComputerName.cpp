// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ComputerName.h"

#include "platform/SmallFiles.h"

#include <array>
#include <fstream>
#include <string_view>
#include <unistd.h>

namespace fv2 {

std::string computerName(const std::string& machineInfoPath) {
    constexpr std::string_view key = "PRETTY_HOSTNAME=";
    std::ifstream info(machineInfoPath);
    for (std::string line; std::getline(info, line);) {
        std::string name =
            line.starts_with(key) ? unquotedValue(std::string_view(line).substr(key.size())) : std::string();
        if (!name.empty())
            return name;
    }
    std::array<char, 256> host{};
    return ::gethostname(host.data(), host.size() - 1) == 0 ? host.data() : std::string();
}

} // namespace fv2
