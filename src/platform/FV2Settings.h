// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! What the administrator of this computer can set.
struct FV2Settings {
    std::string helpHost = "help.example.com"; //!< a reserved name, which nobody can own
    bool credentialsToRootOnly = false;        //!< a service that runs as the user gets no password
};

//! Reads "fv2-agent/agent.conf" in the first of the system's folders for settings (XDG_CONFIG_DIRS, then /etc/xdg) that
//! has it; what is not said there keeps its default. A file that can't be read counts as the stricter choice.
[[nodiscard]] FV2Settings readSettings();

} // namespace fv2
