// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <cstdint>

namespace fv2 {

//! The agent as the desktop knows applications: started again while it runs, it is told so over the session bus
//! instead. Main thread only; the application's.
class FV2DesktopActivation : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    //! Asks for the name without waiting for it. If another process has it, that is logged, and the name comes to us
    //! when that process ends.
    FV2DesktopActivation();

    //! Lets the copy that runs, if any, bring its window to the front with our launcher's token. For a process that is
    //! about to end, without an event loop: waits for an answer, 1 s at most.
    static void passOn(const QString& activationToken);

    // What ActivateAction() can be asked for, besides "open".
    [[nodiscard]] static QString synchroniseAction();
    [[nodiscard]] static QString quitAction();

    enum class Answer : std::uint8_t {
        Granted,
        NobodyThere, //!< no copy is on this session bus
        Silence,     //!< also a refusal
    };
    //! Asks the copy that runs for one of these actions. Waits as passOn() does, and starts no copy.
    [[nodiscard]] static Answer askRunningCopy(const QString& action);

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameters,
                                     const QVariantMap& platformData);

Q_SIGNALS:
    //! Somebody wants to see the program. The token lets a window come to the front; empty where the desktop has none.
    void activated(const QString& activationToken);
    void synchroniseAsked();
    //! Emitted from the event loop, after the answer to whoever asks.
    void quitAsked();
};

} // namespace fv2
