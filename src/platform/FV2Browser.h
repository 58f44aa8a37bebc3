// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! Opens a web page in the browser that the user prefers; nothing for an address that is not one of http or https.
//! Main thread; starts the browser and does not wait for it.
void openInBrowser(const std::string& address);

//! The same for whom to turn to: pages of https, and "tel:", which the desktop hands to what it has for calls.
void openContact(const std::string& address);

} // namespace fv2
