// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2BusValue.h"

#include <QPalette>

namespace fv2 {

//! Whether the desktop wants to look dark: what its settings portal says, else what the palette looks like that it
//! gives to applications. Nobody else may set the application's palette: it would count as the desktop's. Main thread
//! only.
class FV2Appearance : public QObject {
    Q_OBJECT
public:
    //! Asks the portal only if it runs already.
    FV2Appearance();

    [[nodiscard]] bool isDark() const { return m_isDark; }

    //! Asks once more and lets the portal be started for it; only the first call does anything.
    void askPortal();

    //! Gives the application a dark or light palette where the desktop's own is the other kind: what Qt draws beside
    //! our windows, such as Wayland frames, uses it.
    void dressApplication(QPalette (*paletteFor)(bool dark));

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    //! The answer or the application's palette changed: window palettes are derived from both.
    void changed();

private:
    [[nodiscard]] bool looksDark() const;
    void update();

    FV2BusValue m_scheme;
    bool m_desktopIsDark; //!< by its palette
    bool m_isDark;
    bool m_isDressing = false;
    bool m_hasAsked = false;
};

} // namespace fv2
