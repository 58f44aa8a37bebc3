// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2BusValue.h"

#include <QDBusMessage>
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
    // Before the first call on a bus Qt does not know this type, and connects no slot that takes it.
    qRegisterMetaType<QDBusVariant>();
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                set(QVariant());
                if (!newOwner.isEmpty())
                    ask();
            });
}

void FV2BusValue::ask(Start start) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_question.service, m_question.path, m_question.interface, m_question.method);
    message.setArguments(m_question.arguments);
    message.setAutoStartService(start == Start::Allowed);
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, number = ++m_newest] {
        call->deleteLater();
        if (number == m_newest)
            set(call->isError() ? QVariant() : call->reply().arguments().value(0));
    });
}

void FV2BusValue::set(const QVariant& value) {
    ++m_newest;
    m_value = unwrapped(value);
    Q_EMIT learnt();
}

FV2BusProperty::FV2BusProperty(const QDBusConnection& bus, const QString& service, const QString& path,
                               QString interface, QString name)
    : FV2BusValue(bus, {service, path, kProperties, QStringLiteral("Get"), {interface, name}})
    , m_interface(std::move(interface))
    , m_name(std::move(name)) {
    QDBusConnection(bus).connect(service, path, kProperties, QStringLiteral("PropertiesChanged"), this,
                                 SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
    ask();
}

void FV2BusProperty::onPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                         const QStringList& invalidated) {
    if (interface != m_interface)
        return;
    if (const auto value = changed.constFind(m_name); value != changed.constEnd())
        set(*value);
    else if (invalidated.contains(m_name))
        ask();
}

} // namespace fv2
