// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace fv2 {

//! The name that people gave this computer (PRETTY_HOSTNAME of the machine-info file), else its host name; empty when
//! there is neither.
[[nodiscard]] std::string computerName(const std::string& machineInfoPath = "/etc/machine-info");

//! Why the processor's name could not be had: "POSIX" with an errno as code, and what was asked where.
struct SysctlError {
    std::string domain;
    int code;
    std::map<std::string, std::string> userInfo;
};

// Names and versions: at most 200 characters of each, in valid UTF-8 and on one line.

//! The processor's name with " (64-bit)" or " (32-bit)" for the word size of this process. ENOENT also when the
//! processor has no name, as many ARM ones.
[[nodiscard]] std::variant<std::string, SysctlError>
machineDescription(const std::filesystem::path& cpuinfo = "/proc/cpuinfo");

//! Name and version of the operating system, from the first of the files that says one; "Linux" when none does.
[[nodiscard]] std::string osDescription(const std::vector<std::filesystem::path>& paths = {"/etc/os-release",
                                                                                           "/usr/lib/os-release"});

} // namespace fv2
