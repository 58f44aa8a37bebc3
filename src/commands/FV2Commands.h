// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "commands/FV2CommandLine.h"

#include <optional>

namespace fv2 {

//! Answers what needs no running agent on standard output and error, and returns the process's exit status: nothing for
//! a start that is to run the agent. Opens no display and takes no lock. Blocks: up to 8 s for the service, 3 s for a
//! running copy that ends, 2 s for the desktop.
[[nodiscard]] std::optional<int> answeredCommand(const FV2CommandLine& line, int argc, char* argv[]);

} // namespace fv2
