// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariant>

#include <cstdint>
#include <optional>

namespace fv2 {

//! A question to a service on a bus, and the signals of the same object that tell of another answer.
struct FV2BusQuestion {
    QString service;
    QString path;
    QString interface;
    QString method;
    QVariantList arguments;
    QStringList changeSignals = {};
    //! How such a signal begins if it is about the answer; no other wakes us.
    QStringList changeArguments = {};
};

//! The answer to a question, if known: asked for whenever the service gets an owner, unknown while it has none. A
//! question that fails changes nothing. Never blocks, not even on a bus that hangs once we are connected, and starts no
//! service unless told to. Main thread only; a member of the class that uses it.
class FV2BusValue : public QObject {
    Q_OBJECT
public:
    enum class Start : std::uint8_t { Never, Allowed };

    FV2BusValue(const QDBusConnection& bus, FV2BusQuestion question);

    //! Asks in addition to changes of the owner.
    void ask(Start start = Start::Never);
    //! Without the variants that it came wrapped in; invalid while unknown.
    [[nodiscard]] const QVariant& value() const { return m_value; }
    //! Whether the first answer is there, or it is clear that none will come.
    [[nodiscard]] bool isSettled() const { return m_isSettled; }
    [[nodiscard]] bool isTrue() const { return m_value.typeId() == QMetaType::Bool && m_value.toBool(); }

Q_SIGNALS:
    //! An answer has arrived; it may be the same as before.
    void learnt();
    //! Once.
    void settled();

protected:
    //! A signal of the service has told the value; an answer under way is older and no longer counts.
    void set(const QVariant& value);

protected Q_SLOTS:
    //! The new value stands behind the arguments that are matched; where nothing does, it is unknown.
    virtual void onChange(const QDBusMessage& change);

private:
    void askForOwner();
    void setOwner(const QString& owner);
    void settle();

    QDBusConnection m_bus;
    FV2BusQuestion m_question;
    QDBusServiceWatcher m_watcher;
    std::optional<QString> m_owner; //!< its unique name, empty without one; none until the bus has told
    QVariant m_value;
    unsigned m_newest = 0;
    bool m_isSettled = false;
};

//! One property of an object on a bus, followed through its change signals.
class FV2BusProperty final : public FV2BusValue {
    Q_OBJECT
public:
    FV2BusProperty(const QDBusConnection& bus, const QString& service, const QString& path, const QString& interface,
                   QString name);

private:
    void onChange(const QDBusMessage& change) override;

    QString m_name;
};

} // namespace fv2
