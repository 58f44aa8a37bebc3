// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace fv2 {

enum class SessionBus : std::uint8_t {
    Connected,
    None,
    Silent, //!< from here on the process must end without destructors: a thread of Qt's is blocked
};

//! Connects to the session bus, which Qt itself would wait for without a limit; gives up after a second. Needs an
//! application object.
[[nodiscard]] SessionBus connectedSessionBus();

} // namespace fv2
