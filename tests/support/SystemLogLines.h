// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2::test {

//! What has been sent to the system log since the last call, each text with a line feed. A program that this is linked
//! into writes nothing to the machine's log.
std::string takenSystemLog();

} // namespace fv2::test
