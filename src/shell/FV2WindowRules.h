// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "shell/fv2WindowList.h"

namespace fv2 {

//! Whether a window may open beside those that are open. In quiet times none opens by itself; beside another window
//! only a password dialog does, and only for the user and over the main window. Main thread only.
[[nodiscard]] inline bool mayOpen(fv2Window kind, bool userInitiated, const fv2WindowList& open,
                                  const FV2AppStateModel& model) {
    if (open.count() == 0)
        return userInitiated || !model.IsDNDMode();
    const bool asksForPassword = kind == fv2Window::Password_Encrypt || kind == fv2Window::Password_Decrypt;
    return asksForPassword && userInitiated && open.indexOfWindow(kind) == 0 &&
           open.indexOfWindow(fv2Window::Main) != 0;
}

} // namespace fv2
