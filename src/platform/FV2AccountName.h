// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! The short name of the account that this process runs for, whatever the environment says; empty when it has none.
[[nodiscard]] std::string accountName();

} // namespace fv2
