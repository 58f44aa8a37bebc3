// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWindow;

namespace fv2 {

//! Asks an X11 window manager for a frame as dark or light as the window is, also while it is shown. Those of GNOME,
//! MATE and Cinnamon follow; others leave frames to their own theme. Does nothing elsewhere. Main
//! thread only.
void askForFrame(QWindow& window, bool dark);

} // namespace fv2
