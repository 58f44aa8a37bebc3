// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2DesktopActivation.h"

#include "logging/FV2Logging.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace fv2 {

namespace {

const QString kName = QStringLiteral("org.fv2agent.Agent");
const QString kAgentPath = QStringLiteral("/org/fv2agent/Agent");
const QString kNoOwner = QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kApplication = QStringLiteral("org.freedesktop.Application");
const QString kToken = QStringLiteral("activation-token");
constexpr int kActivationPatience = 1000; //!< milliseconds

//! The bus's answers to RequestName that make us the owner.
constexpr unsigned kPrimaryOwner = 1;
constexpr unsigned kAlreadyOwner = 4;

QDBusMessage callRunningCopy(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(kName, kAgentPath, kApplication, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return QDBusConnection::sessionBus().call(message, QDBus::Block, kActivationPatience);
}

} // namespace

FV2DesktopActivation::FV2DesktopActivation() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: whoever sees the name may call at once.
    bus.registerObject(kAgentPath, this, QDBusConnection::ExportScriptableSlots);
    // Qt's own registerService() waits for the answer.
    QDBusMessage request = QDBusMessage::createMethodCall(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus,
                                                          QStringLiteral("RequestName"));
    request << kName << 0U;
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(request), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [call] {
        call->deleteLater();
        const QDBusPendingReply<unsigned> answer = *call;
        if (!answer.isValid() || (answer.value() != kPrimaryOwner && answer.value() != kAlreadyOwner))
            log(FV2LoggingLevel::release, {"The desktop can't activate this copy: no name", kName.toStdString()});
    });
}

void FV2DesktopActivation::passOn(const QString& activationToken) {
    static_cast<void>(callRunningCopy(QStringLiteral("Activate"), {QVariantMap{{kToken, activationToken}}}));
}

QString FV2DesktopActivation::synchroniseAction() {
    return QStringLiteral("synchronise");
}

QString FV2DesktopActivation::quitAction() {
    return QStringLiteral("quit");
}

FV2DesktopActivation::Answer FV2DesktopActivation::askRunningCopy(const QString& action) {
    const QDBusError error(callRunningCopy(QStringLiteral("ActivateAction"), {action, QVariantList(), QVariantMap()}));
    if (!error.isValid())
        return Answer::Granted;
    const bool isGone = error.type() == QDBusError::ServiceUnknown || error.name() == kNoOwner;
    return isGone ? Answer::NobodyThere : Answer::Silence;
}

void FV2DesktopActivation::Activate(const QVariantMap& platformData) {
    Q_EMIT activated(platformData.value(kToken).toString());
}

void FV2DesktopActivation::Open(const QStringList&, const QVariantMap& platformData) {
    Activate(platformData);
}

void FV2DesktopActivation::ActivateAction(const QString& action, const QVariantList&, const QVariantMap& platformData) {
    if (action == QStringLiteral("open"))
        Activate(platformData);
    else if (action == synchroniseAction())
        Q_EMIT synchroniseAsked();
    else if (action == quitAction())
        QMetaObject::invokeMethod(this, &FV2DesktopActivation::quitAsked, Qt::QueuedConnection);
    else
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("unknown action"));
}

} // namespace fv2
