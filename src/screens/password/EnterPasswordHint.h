// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace fv2 {

//! What the password dialog says under its field: the most important thing alone. Main thread only.
struct EnterPasswordHint {
    bool isChecking = false;
    bool waitsForUser = false; //!< keys don't count until the user moves into the window
    bool wasRefused = false;   //!< the last input was too long or no text
    bool capsLockIsOn = false;

    [[nodiscard]] QString text() const;
    //! The picture in front of the text; none in front of what tells of no fault.
    [[nodiscard]] QString sign() const;
};

} // namespace fv2
