// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace fv2 {

//! What the desktop answers to the questions that the agent asks of it, each with its name. Needs an application object
//! whose event loop does not run yet; runs it for half a second at most, and waits a second for the bus. Starts no
//! service.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> desktopFacts();

} // namespace fv2
