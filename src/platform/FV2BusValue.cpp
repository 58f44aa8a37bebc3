// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2BusValue.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace fv2 {

namespace {

const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

FV2BusValue::FV2BusValue(const QDBusConnection& bus, FV2BusQuestion question)
    : m_bus(bus)
    , m_question(std::move(question))
    , m_watcher(m_question.service, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) { setOwner(newOwner); });
    askForOwner();
}

void FV2BusValue::askForOwner() {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                                          QStringLiteral("GetNameOwner"));
    message << m_question.service;
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QString> answer = *call;
        // A change signalled meanwhile is newer.
        if (!m_owner && answer.isValid())
            setOwner(answer.value());
        else if (!m_owner)
            settle();
    });
}

void FV2BusValue::setOwner(const QString& owner) {
    const QString before = std::exchange(m_owner, owner).value_or(QString());
    for (const QString& signal : m_question.changeSignals) {
        // Uses the owner's unique name: for any other, Qt blocks until the bus has named the owner.
        if (!before.isEmpty())
            m_bus.disconnect(before, m_question.path, m_question.interface, signal, m_question.changeArguments,
                             QString(), this, SLOT(onChange(QDBusMessage)));
        if (!owner.isEmpty())
            m_bus.connect(owner, m_question.path, m_question.interface, signal, m_question.changeArguments, QString(),
                          this, SLOT(onChange(QDBusMessage)));
    }
    set(QVariant());
    if (owner.isEmpty())
        settle();
    else
        ask();
}

void FV2BusValue::ask(Start start) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_question.service, m_question.path, m_question.interface, m_question.method);
    message.setArguments(m_question.arguments);
    message.setAutoStartService(start == Start::Allowed);
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, number = ++m_newest] {
        call->deleteLater();
        if (number == m_newest && !call->isError())
            set(call->reply().arguments().value(0));
        settle();
    });
}

void FV2BusValue::settle() {
    if (!std::exchange(m_isSettled, true))
        Q_EMIT settled();
}

void FV2BusValue::set(const QVariant& value) {
    ++m_newest;
    m_value = unwrapped(value);
    Q_EMIT learnt();
}

void FV2BusValue::onChange(const QDBusMessage& change) {
    set(change.arguments().value(m_question.changeArguments.size()));
}

FV2BusProperty::FV2BusProperty(const QDBusConnection& bus, const QString& service, const QString& path,
                               const QString& interface, QString name)
    : FV2BusValue(bus, {service,
                        path,
                        kProperties,
                        QStringLiteral("Get"),
                        {interface, name},
                        {QStringLiteral("PropertiesChanged")},
                        {interface}})
    , m_name(std::move(name)) {
}

void FV2BusProperty::onChange(const QDBusMessage& change) {
    const QVariantList arguments = change.arguments();
    const auto changed = qdbus_cast<QVariantMap>(arguments.value(1));
    if (const auto value = changed.constFind(m_name); value != changed.constEnd())
        set(*value);
    else if (arguments.value(2).toStringList().contains(m_name))
        ask();
}

} // namespace fv2
