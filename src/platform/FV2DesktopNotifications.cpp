// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DesktopNotifications.h"

#include "logging/FV2Logging.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>

#include <limits>
#include <utility>

namespace fv2 {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
constexpr int kServersChoice = -1;
//! No time-out: a notification whose answer nobody waits for would have actions that nobody knows. The bus answers for
//! a service that ends.
constexpr int kForEver = std::numeric_limits<int>::max();

//! Of the three, a byte each.
constexpr unsigned char kNormal = 1;
constexpr unsigned char kCritical = 2;

struct Signal {
    const char* name;
    const char* slot;
};
const Signal kSignals[] = {
    {"ActionInvoked", SLOT(onActionInvoked(uint, QString))},
    {"ActivationToken", SLOT(onActivationToken(uint, QString))},
    {"NotificationClosed", SLOT(onNotificationClosed(uint, uint))},
};

void logLost(const QDBusMessage& answer) {
    log(FV2LoggingLevel::error, {"No notifications:", answer.errorName().toStdString()});
}

} // namespace

void FV2DesktopNotifications::show(FV2Notification notification, Events events) {
    m_wanted = std::move(notification);
    m_events = std::move(events);
    m_isNew = true;
    m_awaitsSuccessor = m_isRepeated = false;
    if (!m_watcher) {
        m_watcher = std::make_unique<QDBusServiceWatcher>(kService, QDBusConnection::sessionBus(),
                                                          QDBusServiceWatcher::WatchForOwnerChange);
        connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
                [this](const QString&, const QString& before, const QString& after) {
                    // One that we have had started ourselves appears while it is being asked.
                    if (!before.isEmpty() && after != m_owner)
                        forgetService();
                    if (!after.isEmpty() && m_wanted && std::exchange(m_awaitsSuccessor, false))
                        m_isNew = true;
                    proceed();
                });
    }
    proceed();
}

void FV2DesktopNotifications::withdraw() {
    m_wanted.reset();
    m_events = {};
    proceed();
}

void FV2DesktopNotifications::proceed() {
    if (m_isAsking)
        return;
    if (m_wanted && m_isNew) {
        if (!m_capabilities)
            return call(QStringLiteral("GetCapabilities"), {}, &FV2DesktopNotifications::onCapabilities);
        m_isNew = false;
        return call(QStringLiteral("Notify"), notifyArguments(), &FV2DesktopNotifications::onNotified);
    }
    if (!m_wanted && m_id != 0)
        call(QStringLiteral("CloseNotification"), {std::exchange(m_id, 0)}, &FV2DesktopNotifications::onCloseAnswered);
}

void FV2DesktopNotifications::call(const QString& method, const QVariantList& arguments,
                                   void (FV2DesktopNotifications::*answered)(const QDBusMessage& answer)) {
    m_isAsking = true;
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kService, method);
    question.setArguments(arguments);
    auto* const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question, kForEver), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, answered, number = m_serviceNumber] {
        call->deleteLater();
        m_isAsking = false;
        // The answer of a service that has ended meanwhile says nothing about its successor.
        if (number == m_serviceNumber)
            (this->*answered)(call->reply());
        proceed();
    });
}

void FV2DesktopNotifications::onCapabilities(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage) {
        logLost(answer);
        return lose();
    }
    m_capabilities = answer.arguments().value(0).toStringList();
    follow(answer.service());
}

void FV2DesktopNotifications::onNotified(const QDBusMessage& answer) {
    m_id = answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toUInt() : 0;
    if (!m_wanted || m_isNew)
        return;
    if (m_id == 0) {
        logLost(answer);
        lose();
    } else if (m_events.shown)
        m_events.shown();
}

//! One that has closed already is not known any more.
void FV2DesktopNotifications::onCloseAnswered(const QDBusMessage& /*answer*/) {
}

QVariantList FV2DesktopNotifications::notifyArguments() const {
    QString text = QString::fromStdString(m_wanted->text);
    if (m_capabilities->contains(QStringLiteral("body-markup")))
        text = text.toHtmlEscaped();
    QStringList actions;
    if (m_capabilities->contains(QStringLiteral("actions")))
        for (const FV2Notification::Action& action : m_wanted->actions)
            actions << QString::fromStdString(action.name) << QString::fromStdString(action.title);
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("org.fv2agent.Agent")},
                            {QStringLiteral("urgency"), QVariant::fromValue(m_wanted->isUrgent ? kCritical : kNormal)}};
    return {QCoreApplication::applicationName(),
            m_id,
            QStringLiteral("org.fv2agent.Agent"),
            QString::fromStdString(m_wanted->title),
            text,
            actions,
            hints,
            kServersChoice};
}

//! By the unique name: another program's signals don't reach us, and Qt does not block to ask who owns the name.
void FV2DesktopNotifications::follow(const QString& owner) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    for (const Signal& signal : kSignals) {
        const QString name = QLatin1String(signal.name);
        if (!m_owner.isEmpty())
            bus.disconnect(m_owner, kPath, kService, name, this, signal.slot);
        if (!owner.isEmpty())
            // NOLINTNEXTLINE(readability-suspicious-call-argument): the owner of the name is the service
            bus.connect(owner, kPath, kService, name, this, signal.slot);
    }
    m_owner = owner;
}

void FV2DesktopNotifications::forgetService() {
    ++m_serviceNumber;
    follow(QString());
    m_capabilities.reset();
    m_token.clear();
    m_id = 0;
    if (!m_wanted)
        return;
    m_isNew = false;
    if (std::exchange(m_isRepeated, true))
        lose();
    else
        m_awaitsSuccessor = true;
}

//! The next one is tried again.
void FV2DesktopNotifications::lose() {
    m_wanted.reset();
    m_isNew = false;
    if (const auto closed = std::exchange(m_events, {}).closed)
        closed();
}

void FV2DesktopNotifications::onActionInvoked(unsigned id, const QString& action) {
    // A number that is not ours, or of what has been, or is just being, replaced or withdrawn.
    if (id == 0 || id != m_id || !m_wanted || m_isNew || m_isAsking)
        return;
    const std::string token = std::exchange(m_token, QString()).toStdString();
    if (const auto chosen = m_events.chosen)
        chosen(action.toStdString(), token);
}

void FV2DesktopNotifications::onActivationToken(unsigned id, const QString& token) {
    if (id == m_id)
        m_token = token;
}

void FV2DesktopNotifications::onNotificationClosed(unsigned id, unsigned /*reason*/) {
    if (id == 0 || id != m_id)
        return;
    m_id = 0;
    m_token.clear();
    // Else it was what is just being replaced.
    if (!m_isNew && !m_isAsking)
        lose();
}

} // namespace fv2
