// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
// What the model does about a status: the actions, the alerts, the prompt that comes back, the user's password.

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"
#include "model/FV2AlertTable.h"
#include "model/FV2AppStateModel.h"

#include <utility>

namespace fv2 {

namespace {

//! How long a synchronisation that nobody asked for keeps off the next one: its own failure calls for another.
constexpr std::chrono::minutes kUnaskedSyncPause{10};

fv2AppCommand commandFor(fv2Window passwordWindow) {
    return passwordWindow == fv2Window::Password_Encrypt ? fv2AppCommand::EnterEncPassword
                                                         : fv2AppCommand::EnterDecPassword;
}

} // namespace

void FV2AppStateModel::performAction(fv2AppCommand command, bool userInitiated) {
    switch (command) {
    case fv2AppCommand::RetryComms:
    case fv2AppCommand::GetStatus:
        if (userInitiated)
            syncCommsAsync(true, fv2SyncSource::User, true);
        else
            refreshUnprompted(true);
        break;
    case fv2AppCommand::EnterEncPassword:
        openPasswordWindow(fv2Window::Password_Encrypt, userInitiated);
        break;
    case fv2AppCommand::EnterDecPassword:
        openPasswordWindow(fv2Window::Password_Decrypt, userInitiated);
        break;
    case fv2AppCommand::ProxySync_ORM:
        if (userInitiated)
            syncProxyAsync(fv2SyncSource::User, true);
        else
            syncProxyUnasked();
        break;
    case fv2AppCommand::NoAction:
    case fv2AppCommand::Initialising_ORM:
        break;
    }
}

void FV2AppStateModel::openPasswordWindow(fv2Window kind, bool userInitiated) {
    if (m_wndDelegate == nullptr)
        return;
    if (userInitiated)
        m_wndDelegate->openWindow(kind, true);
    else
        m_prompt.ask(kind);
}

FV2PasswordPrompt::Ports FV2AppStateModel::promptPorts() {
    return {
        .timers = m_ports.timers,
        .wish = [this](fv2Window kind) { return passwordWish(kind); },
        .open =
            [this](fv2Window kind) {
                m_wndDelegate->openWindow(kind, false);
                return m_wndDelegate->isOpen(kind);
            },
        .doNotDisturb = [this] { return m_ports.doNotDisturb(); },
        .whenQuietIsKnown = [this](std::function<void()> job) { m_ports.whenQuietIsKnown(guarded(std::move(job))); }};
}

FV2PasswordPrompt::Wish FV2AppStateModel::passwordWish(fv2Window kind) const {
    // A service that starts up tells of state 0 before it knows better.
    if (!m_wantsNotifications || jsonParser.state() <= 0)
        return FV2PasswordPrompt::Wish::NotNow;
    return m_state.lastActionStored == commandFor(kind) ? FV2PasswordPrompt::Wish::Wanted
                                                        : FV2PasswordPrompt::Wish::NotWanted;
}

//! At most one in a while: when it fails, the status calls for the next one at once.
void FV2AppStateModel::syncProxyUnasked() {
    if (!m_wantsNotifications || proxySyncSemaphore.count() == 0)
        return;
    const auto now = m_ports.timers.now();
    const auto next = m_lastUnaskedSync ? *m_lastUnaskedSync + kUnaskedSyncPause : now;
    if (now >= next) {
        m_lastUnaskedSync = now;
        syncProxyAsync(fv2SyncSource::None, true);
        return;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - now);
    m_nextUnaskedSync = m_ports.timers.after(left, [this] {
        m_nextUnaskedSync.reset();
        if (!isMainWindowOpen() && m_state.lastActionStored == fv2AppCommand::ProxySync_ORM)
            syncProxyUnasked();
    });
}

void FV2AppStateModel::doAlert(fv2Window window, std::uint64_t errorCode, fv2Alert alert) {
    const FV2AlertRow* const row = alertRow(alert);
    if (row == nullptr)
        return;
    if (m_wndDelegate == nullptr || !m_wndDelegate->isOpen(window)) {
        log(FV2LoggingLevel::error, {"doAlert() without a window"});
        return;
    }
    const fv2Window postponed = row->postpones;
    m_wndDelegate->showAlert(window, alertContent(*row, errorCode, m_ports.strings), guarded([this, postponed] {
                                 if (postponed != fv2Window::None && m_wndDelegate->isOpen(postponed))
                                     m_wndDelegate->confirmPostponement(postponed);
                             }));
}

void FV2AppStateModel::postponePasswordDialog(bool encrypt) {
    m_prompt.postpone(encrypt ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt, m_state.postponeTimeInMins);
}

void FV2AppStateModel::verifyPassword(const std::string& userName, std::shared_ptr<SecretText> password,
                                      std::function<void(fv2PasswordCheck)> done) {
    if (std::exchange(m_isCheckingPassword, true)) {
        reportOnce("password check", "A password was not checked: the check before it has not ended");
        password->wipe();
        done(fv2PasswordCheck::CannotCheck);
        return;
    }
    m_ports.dispatch.run(
        m_owner,
        [passwords = m_ports.passwords, userName, password = std::move(password)] {
            return passwords->verifyPassword(userName, *password);
        },
        [this, done = std::move(done)](fv2PasswordCheck result) {
            m_isCheckingPassword = false;
            done(result);
        });
}

void FV2AppStateModel::setUserCredentials(const std::string& userName, std::shared_ptr<SecretText> password,
                                          std::function<void(const CommandResult&)> done) {
    if (m_state.commsToken.empty()) {
        password->wipe();
        done({.ok = false, .errorCode = 0, .alert = fv2Alert::BadComms});
        refreshUnprompted(false);
        return;
    }
    auto job = [&service = m_ports.service, uid = m_state.userID, token = m_state.commsToken, userName,
                password = std::move(password)] {
        SecretText request =
            jsonSetPWCommand{.uid = uid, .token = token, .parameters = {userName, password->text()}}.encoded();
        password->wipe();
        const std::string answer = service.exchangeSecret(request);
        request.wipe();
        return genericResult(answer, fv2Alert::FailPassword);
    };
    m_ports.dispatch.run(m_owner, std::move(job), [this, done = std::move(done)](const CommandResult& result) {
        done(result);
        if (result.alert == fv2Alert::FailPassword)
            refreshUnprompted(false); // the service may have forgotten our token
        else if (!result.ok && m_wantsNotifications)
            scheduleUnpromptedRefresh(false);
    });
}

} // namespace fv2
