// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

namespace fv2 {

//! The images of tray and window by name, drawn from ":/images/<name>.svg" when first asked for and then kept. Main
//! thread only.
class FV2Images {
public:
    //! Sharp at the sizes that panels use (16, 22, 24, 32, 48 px); a null icon for an unknown name. The dark variant,
    //! "<name>_dark.svg", is outlined for dark panels.
    [[nodiscard]] QIcon imageNamed(const QString& name, bool dark = false);

private:
    QHash<QString, QIcon> m_drawn;
};

} // namespace fv2
