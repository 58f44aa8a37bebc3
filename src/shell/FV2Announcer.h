// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Announcements.h"
#include "model/FV2AppStateModel.h"
#include "model/ports/FV2Notifier.h"
#include "platform/FV2OnceForUser.h"
#include "resources/FV2SupportContact.h"
#include "shell/FV2WindowDelegate.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace fv2 {

//! Tells by the desktop's notifications what happens while the user sees no window, and does what is chosen in them.
//! Main thread only.
class FV2Announcer final : public QObject {
    Q_OBJECT
public:
    //! What is lent to the announcer and outlives it.
    struct Parts {
        FV2AppStateModel& appModel;
        FV2WindowDelegate& wndDelegate;
        FV2Notifier& notifier;
        const OxStringBundle& strings;
        std::function<bool()> isQuiet; //!< the user is not to be disturbed, or not there
        FV2SupportContact support = {};
        bool isEnabled = true;
    };

    explicit FV2Announcer(Parts parts);

    //! The state, the windows or the quiet may have changed.
    void look();
    void passwordWindowKeptShut(fv2Window kind);
    void userSynchronises() { m_announcements.userSynchronises(); }
    void userSyncFailed();
    //! Told once to each user.
    void setTrayMissing(bool missing);

Q_SIGNALS:
    //! The user wants to see the window. The token lets it come to the front; may be empty.
    void windowWanted(const QString& activationToken);
    //! The user wants to enter a password.
    void passwordWanted(fv2AppCommand command, const QString& activationToken);

private:
    [[nodiscard]] FV2Notification notification(fv2Announcement what) const;
    [[nodiscard]] FV2Notification fromMessage(fv2StatusStateType light) const;
    [[nodiscard]] FV2Notification passwordNotification(fv2AppCommand command) const;
    [[nodiscard]] std::string text(std::string_view identifier) const;
    void onChosen(fv2Announcement what, const std::string& action, const std::string& token);

    const Parts m_parts;
    FV2Announcements m_announcements;
    const FV2OnceForUser m_toldOfNoTray{"told-where-without-tray"};
    QTimer m_lookAgain;
};

} // namespace fv2
