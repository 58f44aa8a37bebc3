// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DoNotDisturb.h"

#include "platform/GnomeBanners.h"

namespace fv2 {

namespace {

const QString kNotifications = QStringLiteral("org.freedesktop.Notifications");
const QString kNotificationsPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kXfconf = QStringLiteral("org.xfce.Xfconf");
const QString kXfconfPath = QStringLiteral("/org/xfce/Xfconf");
const QString kXfceChannel = QStringLiteral("xfce4-notifyd");
const QString kXfceProperty = QStringLiteral("/do-not-disturb");

} // namespace

FV2DoNotDisturb::FV2DoNotDisturb()
    : m_inhibited(QDBusConnection::sessionBus(), kNotifications, kNotificationsPath, kNotifications,
                  QStringLiteral("Inhibited"))
    , m_xfce(QDBusConnection::sessionBus(),
             {kXfconf, kXfconfPath, kXfconf, QStringLiteral("GetProperty"), {kXfceChannel, kXfceProperty}}) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(kXfconf, kXfconfPath, kXfconf, QStringLiteral("PropertyChanged"), this,
                SLOT(onXfceChanged(QString, QString, QDBusVariant)));
    bus.connect(kXfconf, kXfconfPath, kXfconf, QStringLiteral("PropertyRemoved"), this,
                SLOT(onXfceRemoved(QString, QString)));
    m_xfce.ask();
}

bool FV2DoNotDisturb::isOn() const {
    return m_inhibited.isTrue() || m_xfce.isTrue() || gnomeBannersAreOff();
}

void FV2DoNotDisturb::onXfceChanged(const QString& channel, const QString& property, const QDBusVariant& value) {
    if (channel == kXfceChannel && property == kXfceProperty)
        m_xfce.set(value.variant());
}

void FV2DoNotDisturb::onXfceRemoved(const QString& channel, const QString& property) {
    if (channel == kXfceChannel && property == kXfceProperty)
        m_xfce.set(QVariant());
}

} // namespace fv2
