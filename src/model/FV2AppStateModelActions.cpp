// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
// What the model does about a status: the actions, the alerts, the prompt that comes back, the user's password.

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"
#include "model/FV2AlertTable.h"
#include "model/FV2AppStateModel.h"

#include <algorithm>
#include <utility>

namespace fv2 {

namespace {

//! What the service asks beyond counts as this, a year.
constexpr std::int64_t kLongestPostponement = std::int64_t{60} * 24 * 365;

} // namespace

void FV2AppStateModel::performAction(fv2AppCommand command, bool userInitiated) {
    switch (command) {
    case fv2AppCommand::RetryComms:
    case fv2AppCommand::GetStatus:
        syncCommsAsync(true, fv2SyncSource::User, true);
        break;
    case fv2AppCommand::EnterEncPassword:
    case fv2AppCommand::EnterDecPassword:
        if (m_wndDelegate != nullptr)
            m_wndDelegate->openWindow(command == fv2AppCommand::EnterEncPassword ? fv2Window::Password_Encrypt
                                                                                 : fv2Window::Password_Decrypt,
                                      userInitiated);
        break;
    case fv2AppCommand::ProxySync_ORM:
        syncProxyAsync(userInitiated ? fv2SyncSource::User : fv2SyncSource::None, true);
        break;
    case fv2AppCommand::NoAction:
    case fv2AppCommand::Initialising_ORM:
        break;
    }
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
    m_wndDelegate->showAlert(window, alertContent(*row, errorCode, m_outside.strings), guarded([this, postponed] {
                                 if (postponed != fv2Window::None && m_wndDelegate->isOpen(postponed))
                                     m_wndDelegate->confirmPostponement(postponed);
                             }));
}

void FV2AppStateModel::postponePasswordDialog(bool encrypt) {
    passwordDialogPostponeTimer.reset();
    if (m_state.postponeTimeInMins <= 0)
        return;
    const std::chrono::minutes delay(std::min(m_state.postponeTimeInMins, kLongestPostponement));
    passwordDialogPostponeTimer = m_outside.timers.after(delay, [this, encrypt] { onPasswordDialogTimer(encrypt); });
}

void FV2AppStateModel::onPasswordDialogTimer(bool encrypt) {
    passwordDialogPostponeTimer.reset();
    // What the service no longer asks for would be closed again at once.
    const fv2AppCommand wanted = encrypt ? fv2AppCommand::EnterEncPassword : fv2AppCommand::EnterDecPassword;
    if (m_state.lastActionStored == wanted)
        performAction(wanted, false);
}

void FV2AppStateModel::verifyPassword(const std::string& userName, std::shared_ptr<SecretText> password,
                                      std::function<void(fv2PasswordCheck)> done) {
    if (std::exchange(m_isCheckingPassword, true)) {
        reportOnce("password check", "A password was not checked: the check before it has not ended");
        password->wipe();
        done(fv2PasswordCheck::CannotCheck);
        return;
    }
    m_outside.dispatch.run(
        m_owner,
        [passwords = m_outside.passwords, userName, password = std::move(password)] {
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
        return;
    }
    auto job = [&service = m_outside.service, uid = m_state.userID, token = m_state.commsToken, userName,
                password = std::move(password)] {
        SecretText request =
            jsonSetPWCommand{.uid = uid, .token = token, .parameters = {userName, password->text()}}.encoded();
        password->wipe();
        const std::string answer = service.exchangeSecret(request);
        request.wipe();
        return genericResult(answer, fv2Alert::FailPassword);
    };
    m_outside.dispatch.run(m_owner, std::move(job), std::move(done));
}

} // namespace fv2
