// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

namespace fv2 {

//! The images of tray and window by name, read from ":/images/<name>.svg" when first asked for and then kept. Main
//! thread only.
class FV2Images {
public:
    //! Sharp at any size, and says so of those that panels and docks use (16 to 128 px); a null icon for an unknown
    //! name. The dark variant, "<name>_dark.svg", is outlined for dark panels. Has a name of the icon theme where the
    //! agent's icons are installed, so that a theme can have its own.
    [[nodiscard]] QIcon imageNamed(const QString& name, bool dark = false);

private:
    QHash<QString, QIcon> m_read;
};

} // namespace fv2
