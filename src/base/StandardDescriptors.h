// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! Opens /dev/null for those of descriptors 0, 1 and 2 that a program was started without: otherwise the first socket
//! or log file would take their numbers, and what is written to standard output would go there. First thing in main().
void fillStandardDescriptors();

} // namespace fv2
