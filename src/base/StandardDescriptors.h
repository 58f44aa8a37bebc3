// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! Opens /dev/null for each of descriptors 0, 1 and 2 that is closed: otherwise the first socket or log file would get
//! its number, and standard output would be written there. Call first in main().
void fillStandardDescriptors();

} // namespace fv2
