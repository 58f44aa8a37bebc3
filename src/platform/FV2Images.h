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
    //! Says that it has what panels and docks use, 16 to 128 px; a null icon for an unknown name. A picture that is
    //! also there as "<name>_22.svg" and "<name>_24.svg" is drawn on whole pixels: the largest multiple of 16, 22 or 24
    //! px that fits, in the middle. Has a name of the icon theme where the agent's icons are installed, so that a theme
    //! can have its own.
    [[nodiscard]] QIcon imageNamed(const QString& name);

private:
    QHash<QString, QIcon> m_read;
};

} // namespace fv2
