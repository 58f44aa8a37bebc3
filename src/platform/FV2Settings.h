// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

namespace fv2 {

//! What the administrator of this computer can set.
struct FV2Settings {
    std::string helpHost = "help.example.com"; //!< a reserved name, which nobody can own; empty: there is no help
    bool credentialsToRootOnly = true;         //!< a service that runs as the user gets no password
};

//! Reads "fv2-agent/agent.conf" in the first of the system's folders for settings (XDG_CONFIG_DIRS, then `computer`)
//! that has it; missing keys keep their default. A file with a mistake is ignored, and the system log is told the first
//! one. Whoever has set XDG_CONFIG_DIRS can't lower credentialsToRootOnly against the file of the computer: where there
//! is one, it has to say so too.
[[nodiscard]] FV2Settings readSettings(const std::filesystem::path& computer = "/etc/xdg");

} // namespace fv2
