// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DoNotDisturb.h"

#include "platform/NotificationBanners.h"

#include <utility>

namespace fv2 {

namespace {

//! A hanging daemon delays the first window no longer than this.
constexpr std::chrono::milliseconds kPatience{300};

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
    for (const FV2BusValue* const value : {static_cast<FV2BusValue*>(&m_inhibited), &m_xfce}) {
        QObject::connect(value, &FV2BusValue::settled, &m_xfce, [this] {
            if (isKnown())
                call();
        });
        QObject::connect(value, &FV2BusValue::learnt, &m_xfce, [this] { m_changed(); });
    }
    QObject::connect(&m_patience, &QTimer::timeout, &m_xfce, [this] { call(); });
    m_patience.setSingleShot(true);
}

void FV2DoNotDisturb::whenKnown(std::function<void()> job) {
    m_whenKnown.push_back(std::move(job));
    if (isKnown())
        call();
    else if (!m_patience.isActive())
        m_patience.start(kPatience);
}

bool FV2DoNotDisturb::isKnown() const {
    return m_inhibited.isSettled() && m_xfce.isSettled();
}

void FV2DoNotDisturb::call() {
    m_patience.stop();
    for (const auto& job : std::exchange(m_whenKnown, {}))
        job();
}

bool FV2DoNotDisturb::isOn() const {
    return m_inhibited.isTrue() || m_xfce.isTrue() || notificationBannersAreOff();
}

} // namespace fv2
