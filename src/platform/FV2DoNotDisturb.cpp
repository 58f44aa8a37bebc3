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
    , m_xfce(QDBusConnection::sessionBus(), {kXfconf,
                                             kXfconfPath,
                                             kXfconf,
                                             QStringLiteral("GetProperty"),
                                             {kXfceChannel, kXfceProperty},
                                             {QStringLiteral("PropertyChanged"), QStringLiteral("PropertyRemoved")},
                                             {kXfceChannel, kXfceProperty}}) {
}

bool FV2DoNotDisturb::isOn() const {
    return m_inhibited.isTrue() || m_xfce.isTrue() || gnomeBannersAreOff();
}

} // namespace fv2
