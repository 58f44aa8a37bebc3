// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! The help server's number of a language: Microsoft's locale identifier, in decimal; English for one that the table
//! does not have. `localization` as in "de" or "pt-BR", with "-" or "_".
[[nodiscard]] std::string helpLanguageCode(std::string_view localization);

//! Where the online help is. `host` is a host name with or without a port, or an address that begins with https:// and
//! ends before "/getHelp"; empty when it is neither.
[[nodiscard]] std::string helpAddress(std::string_view host, std::string_view localization);

} // namespace fv2
