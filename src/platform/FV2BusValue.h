// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariant>

#include <cstdint>

namespace fv2 {

//! A question to a service on a bus.
struct FV2BusQuestion {
    QString service;
    QString path;
    QString interface;
    QString method;
    QVariantList arguments;
};

//! The answer to a question, as far as it is known: asked for again whenever the service gets a new owner, unknown
//! while it has none. Nothing waits, and no service is started unless somebody says so. Main thread only; a part of
//! the class that wants to know.
class FV2BusValue : public QObject {
    Q_OBJECT
public:
    enum class Start : std::uint8_t { Never, Allowed };

    FV2BusValue(const QDBusConnection& bus, FV2BusQuestion question);

    void ask(Start start = Start::Never);
    //! A signal of the service has told the value; an answer under way is older and no longer counts.
    void set(const QVariant& value);
    //! Without the variants that it came wrapped in; invalid while unknown.
    [[nodiscard]] const QVariant& value() const { return m_value; }
    [[nodiscard]] bool isTrue() const { return m_value.typeId() == QMetaType::Bool && m_value.toBool(); }

Q_SIGNALS:
    //! Something was learnt; it may be the same as before.
    void learnt();

private:
    QDBusConnection m_bus;
    FV2BusQuestion m_question;
    QDBusServiceWatcher m_watcher;
    QVariant m_value;
    unsigned m_newest = 0;
};

//! One property of an object on a bus, followed through its change signals.
class FV2BusProperty final : public FV2BusValue {
    Q_OBJECT
public:
    FV2BusProperty(const QDBusConnection& bus, const QString& service, const QString& path, QString interface,
                   QString name);

private Q_SLOTS:
    void onPropertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    QString m_interface;
    QString m_name;
};

} // namespace fv2
