// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPalette>

namespace fv2 {

//! The application's own palette where it is of the wanted kind, otherwise one of that kind: a desktop can ask for dark
//! windows although its widget style knows nothing of it.
[[nodiscard]] QPalette windowPalette(bool dark);

//! Gives the windows of a Wayland client that are shown a frame in the application's colours of now: Qt, which draws
//! it, takes them once for each frame.
void renewFrames();

} // namespace fv2
