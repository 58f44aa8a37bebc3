// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"
#include "toolkit/NxLeftMenuCellView.h"

#include <QColor>

namespace fv2 {

//! The number of status messages in the left menu's first row, on a bubble in the light's colour. Main thread only.
class LeftMenuCounter {
public:
    //! A single message does not count while all is well.
    [[nodiscard]] static long statusMessageCount(const FV2AppState& state);

    //! Shows the number and the light's icon in the row. `darkText` is for numbers on light bubbles.
    static void show(NxLeftMenuCellView& cell, const FV2AppState& state, const QColor& darkText);
    //! What a screen reader says of the row: number and status, nothing for no number, then the row's help.
    [[nodiscard]] static QString spoken(const FV2AppState& state, const QString& help);
};

} // namespace fv2
