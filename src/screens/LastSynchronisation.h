// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"

#include <QString>

namespace fv2 {

//! When it was, or what it is doing, in the user's language.
[[nodiscard]] QString lastSynchronisation(const FV2AppState& state);

} // namespace fv2
