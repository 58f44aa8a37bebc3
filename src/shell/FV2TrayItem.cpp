// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2TrayItem.h"

#include <array>
#include <utility>

namespace fv2 {

namespace {

//! The title of each traffic-light state, in the order of the states.
constexpr std::array<std::string_view, 3> kStateTitles{
    "IDUS_MGUI_STATUS_TITLE_GREEN",
    "IDUS_MGUI_STATUS_TITLE_YELLOW",
    "IDUS_MGUI_STATUS_TITLE_RED",
};

} // namespace

void FV2TrayItem::show(std::string_view imageName, fv2StatusStateType overallState) {
    const auto translated = [this](std::string_view identifier) {
        return QString::fromStdString(OxTranslatedString::translateOrMarkID(identifier, m_strings).string());
    };
    const QString image = QString::fromUtf8(imageName.data(), static_cast<qsizetype>(imageName.size()));
    if (std::exchange(m_imageName, image) != image)
        refreshIcon();
    const QString toolTip = translated("IDUS_PRODUCT_DISPLAY_NAME") + QStringLiteral(": ") +
                            translated(kStateTitles.at(static_cast<std::size_t>(overallState)));
    if (std::exchange(m_toolTip, toolTip) != toolTip && m_icon)
        m_icon->setToolTip(toolTip);
}

void FV2TrayItem::setMenu(QMenu& menu, std::function<void()> clicked) {
    m_menu = &menu;
    m_clicked = std::move(clicked);
}

void FV2TrayItem::setDark(bool dark) {
    if (std::exchange(m_dark, dark) != dark)
        refreshIcon();
}

void FV2TrayItem::refreshIcon() {
    if (m_icon)
        m_icon->setIcon(m_images.imageNamed(m_imageName, m_dark));
}

void FV2TrayItem::showInTray() {
    m_icon.emplace(m_images.imageNamed(m_imageName, m_dark));
    m_icon->setToolTip(m_toolTip);
    m_icon->setContextMenu(m_menu);
    QObject::connect(&*m_icon, &QSystemTrayIcon::activated, &*m_icon, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger && m_clicked)
            m_clicked();
    });
    m_icon->show();
}

} // namespace fv2
