// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>

namespace fv2::test {

//! What must hold for any input; the fuzzer shows where it did not.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace fv2::test
