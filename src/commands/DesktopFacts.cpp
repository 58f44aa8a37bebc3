// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/DesktopFacts.h"

#include "commands/SessionBus.h"
#include "platform/FV2BusValue.h"
#include "platform/FV2DoNotDisturb.h"

#include <QCoreApplication>
#include <QTimer>

namespace fv2 {

namespace {

//! Longer than Do Not Disturb waits.
constexpr std::chrono::milliseconds kLongestAnswer{500};

const QString kTray = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPortalSettings = QStringLiteral("org.freedesktop.portal.Settings");

std::string shown(const QVariant& value) {
    return value.isValid() ? value.toString().toStdString() : std::string("no answer");
}

} // namespace

std::vector<std::pair<std::string, std::string>> desktopFacts() {
    const SessionBus state = connectedSessionBus();
    if (state != SessionBus::Connected)
        return {{"session bus", state == SessionBus::None ? "none" : "no answer"}};
    const QDBusConnection bus = QDBusConnection::sessionBus();
    const FV2BusProperty tray(bus, kTray, QStringLiteral("/StatusNotifierWatcher"), kTray,
                              QStringLiteral("IsStatusNotifierHostRegistered"));
    const FV2BusProperty portal(bus, QStringLiteral("org.freedesktop.portal.Desktop"),
                                QStringLiteral("/org/freedesktop/portal/desktop"), kPortalSettings,
                                QStringLiteral("version"));
    FV2DoNotDisturb doNotDisturb;
    int missing = 3;
    const auto arrived = [&missing] {
        if (--missing == 0)
            QCoreApplication::quit();
    };
    for (const FV2BusProperty* const value : {&tray, &portal})
        QObject::connect(value, &FV2BusValue::settled, value, arrived);
    QTimer::singleShot(kLongestAnswer, QCoreApplication::instance(), &QCoreApplication::quit);
    doNotDisturb.whenKnown(arrived);
    QCoreApplication::exec();
    return {{"session bus", "yes"},
            {"tray's host", shown(tray.value())},
            {"settings portal, version", shown(portal.value())},
            {"Do Not Disturb", doNotDisturb.isOn() ? "true" : "false"}};
}

} // namespace fv2
