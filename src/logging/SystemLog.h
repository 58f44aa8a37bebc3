// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fv2 {

enum class fv2SystemLogType : std::uint8_t { info, error, debug };

//! Sends one line to the system log under the ident "fv2-agent": to the journal, without one to syslog. Any thread. A
//! log that is not read holds the caller up for a moment, and drops the line; then all but errors are dropped for a
//! second. `messageId`: 32 digits by which the journal finds lines of one kind.
void systemLog(fv2SystemLogType type, const std::string& text, std::string_view messageId = {});

} // namespace fv2
