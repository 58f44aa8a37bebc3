// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxAttributedString.h"

namespace fv2 {

//! Gives links the design's colour for light surfaces; there is no way back. Main thread only.
class NxSetAttributedStringLinkColorTransformer {
public:
    [[nodiscard]] static NxAttributedString transformedValue(NxAttributedString text);
};

} // namespace fv2
