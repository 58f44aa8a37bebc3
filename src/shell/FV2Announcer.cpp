// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2Announcer.h"

#include "resources/FV2TagScanner.h"

#include <algorithm>
#include <chrono>

namespace fv2 {

namespace {

constexpr const char* kShow = "default"; //!< a click on the notification itself
constexpr const char* kEnter = "enter";
constexpr const char* kLater = "later";

fv2AppCommand commandOf(fv2Announcement password) {
    return password == fv2Announcement::PasswordToEncrypt ? fv2AppCommand::EnterEncPassword
                                                          : fv2AppCommand::EnterDecPassword;
}

} // namespace

FV2Announcer::FV2Announcer(Parts parts)
    : m_parts(std::move(parts)) {
    m_lookAgain.setSingleShot(true);
    connect(&m_lookAgain, &QTimer::timeout, this, &FV2Announcer::look);
    connect(&m_parts.wndDelegate, &FV2WindowDelegate::windowsChanged, this, &FV2Announcer::look);
}

void FV2Announcer::look() {
    const FV2WindowDelegate& windows = m_parts.wndDelegate;
    auto now = FV2Announcements::situation(m_parts.appModel.state(), windows.isAnyWindowMain());
    if (!now || !m_parts.isEnabled)
        return;
    now->isPromptShut = windows.isOpen(fv2Window::Main) && !windows.isOpen(fv2Window::Password_Encrypt) &&
                        !windows.isOpen(fv2Window::Password_Decrypt);
    now->isPostponed = m_parts.appModel.isPasswordPostponed();
    const auto time = std::chrono::steady_clock::now();
    const auto what = m_announcements.look(*now, time, m_parts.isQuiet);
    m_lookAgain.stop();
    if (const auto next = m_announcements.nextLook(); next && *next > time)
        m_lookAgain.start(std::chrono::ceil<std::chrono::milliseconds>(*next - time));
    if (!what)
        return;
    if (*what == fv2Announcement::None)
        return m_parts.notifier.withdraw();
    m_parts.notifier.show(notification(*what),
                          {.shown =
                               [this, what] {
                                   if (*what == fv2Announcement::NoTray)
                                       m_toldOfNoTray.remember();
                               },
                           .chosen = [this, what](const std::string& action,
                                                  const std::string& token) { onChosen(*what, action, token); },
                           .closed =
                               [this] {
                                   m_announcements.closed();
                                   look(); // for what waits
                               }});
}

void FV2Announcer::passwordWindowKeptShut(fv2Window kind) {
    m_announcements.passwordWindowKeptShut(kind);
    look();
}

void FV2Announcer::userSyncFailed() {
    m_announcements.userSyncFailed();
    look();
}

void FV2Announcer::setTrayMissing(bool missing) {
    m_announcements.setTrayMissing(missing && m_toldOfNoTray.isStillToCome());
    look();
}

//! Texts are plain here: nothing in a notification but its buttons can be used.
std::string FV2Announcer::text(std::string_view identifier) const {
    return textWithoutLinks(translatedText(identifier, m_parts.strings));
}

FV2Notification FV2Announcer::notification(fv2Announcement what) const {
    const std::string open = text("IDUS_MGUI_MENUBAR_OPEN_ORM");
    FV2Notification made;
    switch (what) {
    case fv2Announcement::None:
        break;
    case fv2Announcement::NoTray:
        made = {.title = text("IDUS_NOTICE_NO_TRAY"), .text = text("IDUS_NOTICE_NO_TRAY_DESC")};
        break;
    case fv2Announcement::EncryptionFinished:
        made = {.title = text("IDUS_NOTICE_ENCRYPTED"), .text = text("IDUS_NOTICE_ENCRYPTED_DESC")};
        break;
    case fv2Announcement::DecryptionFinished:
        made = {.title = text("IDUS_NOTICE_DECRYPTED"), .text = text("IDUS_NOTICE_DECRYPTED_DESC")};
        break;
    case fv2Announcement::Yellow:
        made = fromMessage(fv2StatusStateType::Yellow);
        break;
    case fv2Announcement::Red:
        made = fromMessage(fv2StatusStateType::Red);
        break;
    case fv2Announcement::SyncFailed:
        made = {.title = text("IDUS_ALERT_ERROR_PROXYSYNC_GENERIC_TITLE"),
                .text = text("IDUS_ALERT_ERROR_PROXYSYNC_PROBLEM")};
        if (const std::string support = m_parts.support.plainText(m_parts.strings); !support.empty())
            made.text += '\n' + support;
        break;
    case fv2Announcement::PasswordToEncrypt:
    case fv2Announcement::PasswordToDecrypt:
        return passwordNotification(commandOf(what));
    }
    made.actions = {{kShow, open}};
    return made;
}

FV2Notification FV2Announcer::fromMessage(fv2StatusStateType light) const {
    const auto& messages = m_parts.appModel.state().statusMessageList;
    const auto found = std::ranges::find_if(messages, [light](const FV2StatusMesssageListItem& message) {
        return message.fromAIS && message.statusType == light;
    });
    if (found == messages.end())
        return {};
    FV2Notification made{.title = found->Title, .text = textWithoutLinks(found->Text)};
    if (const std::string support = m_parts.support.plainText(m_parts.strings);
        found->sendsToAdministrator && !support.empty())
        made.text += '\n' + support;
    return made;
}

FV2Notification FV2Announcer::passwordNotification(fv2AppCommand command) const {
    const bool encrypts = command == fv2AppCommand::EnterEncPassword;
    return {.title = text(encrypts ? "IDUS_ORM_SM_WANT_ENC" : "IDUS_ORM_SM_WANT_DEC"),
            .text = text(encrypts ? "IDUS_ORM_SM_WANT_ENC_DESC" : "IDUS_ORM_SM_WANT_DEC_DESC"),
            .isUrgent = true,
            .actions = {{kShow, text("IDUS_MGUI_MENUBAR_OPEN_ORM")},
                        {kEnter, text("IDUS_LINK_ENTER_PASSWORD_DIALOG")},
                        {kLater, text("IDUS_BUTTON_POSTPONE")}}};
}

void FV2Announcer::onChosen(fv2Announcement what, const std::string& action, const std::string& token) {
    const bool isPassword = what == fv2Announcement::PasswordToEncrypt || what == fv2Announcement::PasswordToDecrypt;
    if (action == kShow)
        Q_EMIT windowWanted(QString::fromStdString(token));
    else if (isPassword && action == kEnter)
        Q_EMIT passwordWanted(commandOf(what), QString::fromStdString(token));
    else if (isPassword && action == kLater) {
        m_parts.appModel.postponePasswordDialog(what == fv2Announcement::PasswordToEncrypt);
        m_announcements.postponed();
        m_parts.notifier.withdraw();
    }
}

} // namespace fv2
