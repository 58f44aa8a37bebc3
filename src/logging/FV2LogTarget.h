// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace fv2 {

//! Where log lines go beside standard output.
enum class FV2LogTarget : std::uint8_t { File, Journal, Both };

} // namespace fv2
