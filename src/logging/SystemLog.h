// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace fv2 {

enum class fv2SystemLogType : std::uint8_t { info, error, debug };

//! Sends one line to the system log under the ident "fv2-agent". Any thread.
void systemLog(fv2SystemLogType type, const std::string& text);

} // namespace fv2
