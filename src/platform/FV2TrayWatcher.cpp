// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2TrayWatcher.h"

#include "platform/FV2XcbReply.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>

#include <string>
#include <xcb/xcb.h>

namespace fv2 {

namespace {

const QString kTrayService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kTrayPath = QStringLiteral("/StatusNotifierWatcher");

//! Whether some window owns the selection of the system tray protocol on X11's first screen.
bool hasOlderTray() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The offscreen platform has the interface too, but no connection.
    xcb_connection_t* const connection = x11 == nullptr ? nullptr : x11->connection();
    if (connection == nullptr)
        return false;
    const std::string name = "_NET_SYSTEM_TRAY_S0";
    const FV2XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    if (!atom)
        return false;
    const FV2XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

FV2TrayWatcher::FV2TrayWatcher(std::function<void()> available, std::function<void()> missing,
                               std::chrono::milliseconds patience)
    : m_available(std::move(available))
    , m_missing(std::move(missing))
    , m_watcher(kTrayService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &FV2TrayWatcher::askForHost);
    // From any sender, as it only makes us ask: for a name, Qt would block until the bus names the owner.
    QDBusConnection::sessionBus().connect(QString(), kTrayPath, kTrayService,
                                          QStringLiteral("StatusNotifierHostRegistered"), this,
                                          SLOT(onHostRegistered()));
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &FV2TrayWatcher::acceptOlderTray);
    m_patience.start(patience);
    askForHost();
}

void FV2TrayWatcher::askForHost() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        kTrayService, kTrayPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << kTrayService << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        const QDBusPendingReply<QDBusVariant> answer = *call;
        call->deleteLater();
        if (answer.isValid() && answer.value().variant().toBool())
            becomeAvailable();
    });
}

void FV2TrayWatcher::acceptOlderTray() {
    if (hasOlderTray())
        becomeAvailable();
    else
        m_missing();
}

void FV2TrayWatcher::becomeAvailable() {
    m_patience.stop();
    if (const auto available = std::exchange(m_available, nullptr))
        available();
}

} // namespace fv2
