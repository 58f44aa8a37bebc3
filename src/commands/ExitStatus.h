// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

// What the options exit with. A status has a monitoring plugin's numbers: 0 green, 1 yellow, 2 red, 3 unknown.

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1; //!< mistakes were found, nobody runs, the file can't be written
inline constexpr int kExitMisused = 2;
inline constexpr int kExitUnreachable = 3; //!< also where standard output takes nothing
inline constexpr int kExitNoWay = 4;       //!< a copy runs, but no session bus leads to it

} // namespace fv2
