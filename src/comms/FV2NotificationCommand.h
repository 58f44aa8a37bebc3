// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace fv2 {

enum class fv2JsonCommand { None, Show, GetStatus, GetToken, SetPassword, GetLoadedModuleInfo_QUIL, ProxySync_ORM };

//! What a message on the agent's own socket asks for: None when it can't be decoded, Show for "show_ui", GetStatus for
//! everything else. Pure, any thread.
[[nodiscard]] fv2JsonCommand commandKind(std::string_view text);

} // namespace fv2
