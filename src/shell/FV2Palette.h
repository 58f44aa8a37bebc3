// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPalette>

namespace fv2 {

//! The application's own palette where it is of the wanted kind, otherwise one of that kind: a desktop can ask for dark
//! windows although its widget style knows nothing of it.
[[nodiscard]] QPalette windowPalette(bool dark);

} // namespace fv2
