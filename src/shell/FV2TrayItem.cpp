// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2TrayItem.h"

#include "model/FV2StatusLook.h"
#include "toolkit/NxTranslated.h"

#include <utility>

namespace fv2 {

void FV2TrayItem::show(std::string_view imageName, fv2StatusStateType overallState, std::optional<int> percent) {
    const QString image = QString::fromUtf8(imageName.data(), static_cast<qsizetype>(imageName.size()));
    if (std::exchange(m_imageName, image) != image && m_icon)
        m_icon->setIcon(m_images.imageNamed(m_imageName));
    QString toolTip = translated(QStringLiteral("IDUS_PRODUCT_DISPLAY_NAME"), m_strings) + QStringLiteral(": ") +
                      translated(QString::fromUtf8(lookOf(overallState).title), m_strings);
    if (percent)
        toolTip += QStringLiteral(" (") +
                   translated(QStringLiteral("IDUS_ORM_SM_PERCENT_FMT"), m_strings).arg(*percent) + QLatin1Char(')');
    if (std::exchange(m_toolTip, toolTip) != toolTip && m_icon)
        m_icon->setToolTip(toolTip);
}

void FV2TrayItem::setMenu(QMenu& menu, std::function<void()> clicked) {
    m_menu = &menu;
    m_clicked = std::move(clicked);
}

void FV2TrayItem::showInTray() {
    m_icon.emplace(m_images.imageNamed(m_imageName));
    m_icon->setToolTip(m_toolTip);
    m_icon->setContextMenu(m_menu);
    QObject::connect(&*m_icon, &QSystemTrayIcon::activated, &*m_icon, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger && m_clicked)
            m_clicked();
    });
    m_icon->show();
}

} // namespace fv2
