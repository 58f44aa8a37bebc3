// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ports/FV2Notifier.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

namespace fv2 {

//! The desktop's service for notifications. Nothing is asked or followed before the first one, then what the service
//! can do; where there is none, notifications are lost. A service that answers late gets only the newest one. What was
//! shown when the service ended is shown by its successor, once. Main thread only.
class FV2DesktopNotifications : public QObject, public FV2Notifier {
    Q_OBJECT
public:
    void show(FV2Notification notification, Events events) override;
    void withdraw() override;

private:
    //! One call at a time: what is wanted meanwhile goes out with its answer.
    void proceed();
    void call(const QString& method, const QVariantList& arguments,
              void (FV2DesktopNotifications::*answered)(const QDBusMessage& answer));
    void onCapabilities(const QDBusMessage& answer);
    void onNotified(const QDBusMessage& answer);
    void onCloseAnswered(const QDBusMessage& answer);
    [[nodiscard]] QVariantList notifyArguments() const;
    void follow(const QString& owner);
    void forgetService();
    void lose();

private Q_SLOTS:
    void onActionInvoked(unsigned id, const QString& action);
    void onActivationToken(unsigned id, const QString& token);
    void onNotificationClosed(unsigned id, unsigned reason);

private:
    std::optional<FV2Notification> m_wanted; //!< none: nothing is to be shown
    Events m_events;                         //!< of the one that is wanted
    bool m_isNew = false;                    //!< it has not been sent
    bool m_isAsking = false;
    bool m_awaitsSuccessor = false; //!< its service has ended
    bool m_isRepeated = false;      //!< a service has ended with it; the next one that does might end of it
    unsigned m_id = 0;              //!< of what is shown; none is 0
    QString m_owner;                //!< unique name of the service that knows the id
    std::optional<QStringList> m_capabilities;
    QString m_token;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    unsigned m_serviceNumber = 0; //!< of the service's owners
};

} // namespace fv2
