// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "platform/FV2Images.h"
#include "resources/OxTranslatedString.h"

#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>
#include <optional>

namespace fv2 {

//! The agent's icon in the tray. What it shows can be set before there is a tray to show it in. Main thread only.
class FV2TrayItem final {
public:
    FV2TrayItem(FV2Images& images, const OxStringBundle& strings)
        : m_images(images)
        , m_strings(strings) {}

    //! Before showInTray(): the menu that the tray's host shows, and what a click of the left button does.
    void setMenu(QMenu& menu, std::function<void()> clicked);

    //! Shows the image of that name; state and percent, if any, are for the text beside it. Setting what is shown
    //! already does nothing: the tray's host would redraw for it.
    void show(std::string_view imageName, fv2StatusStateType overallState, std::optional<int> percent = {});

    //! To be called once a tray can be used: makes the item with what was set last.
    void showInTray();

private:
    FV2Images& m_images;
    const OxStringBundle& m_strings;
    QMenu* m_menu = nullptr;
    std::function<void()> m_clicked;
    QString m_imageName;
    QString m_toolTip;
    std::optional<QSystemTrayIcon> m_icon;
};

} // namespace fv2
