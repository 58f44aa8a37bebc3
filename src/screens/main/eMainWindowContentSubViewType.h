// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace fv2 {

//! The main window's content pages.
enum class eMainWindowContentSubViewType : std::uint8_t { None, ProtectionStatus, Setup, About };

} // namespace fv2
