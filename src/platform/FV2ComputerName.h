// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! The name that people gave this computer (PRETTY_HOSTNAME of the machine-info file), else its host name; empty when
//! there is neither.
[[nodiscard]] std::string computerName(const std::string& machineInfoPath = "/etc/machine-info");

} // namespace fv2
