// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2BusValue.h"

#include <QPalette>

namespace fv2 {

//! Whether the desktop wants to look dark: what its settings portal says, else what the palette looks like that it
//! gives to applications. Nobody else may set the application's palette: it would pass for the desktop's. Main thread
//! only.
class FV2Appearance : public QObject {
    Q_OBJECT
public:
    //! Asks the portal only if it runs already.
    FV2Appearance();

    [[nodiscard]] bool isDark() const { return m_isDark; }

    //! Asks once more and lets the portal be started for it; only the first call does anything.
    void askPortal();

    //! Gives the application a palette of the wanted kind where the desktop's own is of the other one: what Qt draws
    //! beside our windows, as their frames under Wayland, goes by it.
    void dressApplication(QPalette (*paletteFor)(bool dark));

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    //! The answer, or the application's palette: windows that show the other kind of colours are made from either.
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
