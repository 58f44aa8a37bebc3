// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2LoginSession.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace fv2 {

namespace {

const QString kLogind = QStringLiteral("org.freedesktop.login1");
const QString kLogindPath = QStringLiteral("/org/freedesktop/login1");
const QString kManager = QStringLiteral("org.freedesktop.login1.Manager");
const QString kSession = QStringLiteral("org.freedesktop.login1.Session");

struct Way {
    QString method;
    QVariant argument;
};

//! How the path of our session may be found, the best way first. Signals come only on that path, not on ".../auto".
QList<Way> waysToOurSession() {
    return {{QStringLiteral("GetSession"), QStringLiteral("auto")},
            {QStringLiteral("GetSessionByPID"), static_cast<unsigned>(QCoreApplication::applicationPid())},
            {QStringLiteral("GetSession"), qEnvironmentVariable("XDG_SESSION_ID")}};
}

} // namespace

FV2LoginSession::FV2LoginSession()
    : m_bus(QDBusConnection::systemBus())
    , m_watcher(kLogind, m_bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                if (!newOwner.isEmpty())
                    resolve();
            });
    resolve();
}

void FV2LoginSession::resolve() {
    resolve(0, ++m_round);
}

void FV2LoginSession::resolve(std::size_t way, unsigned round) {
    const QList<Way> ways = waysToOurSession();
    const auto index = static_cast<qsizetype>(way);
    if (index >= ways.size())
        return;
    QDBusMessage question = QDBusMessage::createMethodCall(kLogind, kLogindPath, kManager, ways[index].method);
    question << ways[index].argument;
    question.setAutoStartService(false);
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, way, round] {
        call->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> answer = *call;
        if (round != m_round)
            return;
        if (!answer.isValid())
            return resolve(way + 1, round);
        follow(answer.reply().service(), answer.value().path());
    });
}

void FV2LoginSession::follow(const QString& owner, const QString& path) {
    m_property = std::make_unique<FV2BusProperty>(m_bus, kLogind, path, kSession, QStringLiteral("Active"));
    connect(m_property.get(), &FV2BusValue::learnt, this, &FV2LoginSession::onActiveLearnt);
    m_lockedHint = std::make_unique<FV2BusProperty>(m_bus, kLogind, path, kSession, QStringLiteral("LockedHint"));
    connect(m_lockedHint.get(), &FV2BusValue::learnt, this, &FV2LoginSession::onHintLearnt);
    // Some lockers set no hint, others lock without logind's signal. Uses the owner's unique name: for any other, Qt
    // blocks until the bus has named the owner.
    const QString lock = QStringLiteral("Lock");
    if (!m_owner.isEmpty())
        m_bus.disconnect(m_owner, m_path, kSession, lock, this, SIGNAL(locked()));
    m_owner = owner;
    m_path = path;
    m_bus.connect(m_owner, m_path, kSession, lock, this, SIGNAL(locked()));
}

void FV2LoginSession::onHintLearnt() {
    if (m_lockedHint->isTrue())
        Q_EMIT locked();
    else
        Q_EMIT unlocked();
}

void FV2LoginSession::onActiveLearnt() {
    // While logind restarts nothing is known, and nothing has changed.
    if (m_property->value().typeId() != QMetaType::Bool)
        return;
    const bool isActive = m_property->isTrue();
    if (const std::optional<bool> before = std::exchange(m_isActive, isActive); before && *before != isActive) {
        if (isActive)
            Q_EMIT becameActive();
        else
            Q_EMIT resigned();
    }
}

} // namespace fv2
