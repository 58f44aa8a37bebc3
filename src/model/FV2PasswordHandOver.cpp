// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2PasswordHandOver.h"

#include "comms/FV2Requests.h"
#include "logging/SystemReport.h"

#include <utility>

namespace fv2 {

//! One password on its way. It is in one thread's hands at a time: main's, then a worker's, then main's again.
struct FV2PasswordHandOver::Attempt {
    //! The request for the service, which the password becomes: it is gone from here.
    SecretText takeRequest(std::int64_t uid, std::string_view token) {
        const SecretText used = std::move(password);
        return jsonSetPWCommand{.uid = uid, .token = token, .parameters = {userName, used.text()}}.encoded();
    }

    std::string userName;
    SecretText password;
    FV2PasswordAsker asker;
};

void FV2PasswordHandOver::submit(std::string userName, SecretText password, FV2PasswordAsker asker) {
    verifyPassword(std::make_shared<Attempt>(
        Attempt{.userName = std::move(userName), .password = std::move(password), .asker = std::move(asker)}));
}

void FV2PasswordHandOver::verifyPassword(const std::shared_ptr<Attempt>& attempt) {
    if (std::exchange(m_isCheckingPassword, true)) {
        reportOnce("password check", "A password was not checked: the check before it has not ended");
        finish(*attempt, {.ok = false, .errorCode = 0, .alert = fv2Alert::CannotCheckPassword});
        return;
    }
    m_ports.dispatch.run(
        m_ports.owner,
        [passwords = m_ports.passwords, attempt] {
            return passwords->verifyPassword(attempt->userName, attempt->password);
        },
        [this, attempt](fv2PasswordCheck check) {
            m_isCheckingPassword = false;
            onVerified(attempt, check);
        });
}

void FV2PasswordHandOver::onVerified(const std::shared_ptr<Attempt>& attempt, fv2PasswordCheck check) {
    const auto asker = attempt->asker.asker.lock();
    if (check != fv2PasswordCheck::Right || asker == nullptr) {
        const fv2Alert alert =
            check == fv2PasswordCheck::CannotCheck ? fv2Alert::CannotCheckPassword : fv2Alert::BadPassword;
        finish(*attempt, {.ok = false, .errorCode = 0, .alert = alert});
        return;
    }
    attempt->asker.handingOver();
    setUserCredentials(attempt);
}

void FV2PasswordHandOver::setUserCredentials(const std::shared_ptr<Attempt>& attempt) {
    const std::string& token = m_ports.state.commsToken;
    if (token.empty()) {
        finish(*attempt, {.ok = false, .errorCode = 0, .alert = fv2Alert::BadComms});
        m_ports.tokenWanted();
        return;
    }
    auto job = [&service = m_ports.service, uid = m_ports.state.userID, token, attempt] {
        SecretText request = attempt->takeRequest(uid, token);
        const std::string answer = service.exchangeSecret(request);
        request.wipe();
        return genericResult(answer, fv2Alert::FailPassword);
    };
    m_ports.dispatch.run(m_ports.owner, std::move(job), [this, attempt](const CommandResult& result) {
        finish(*attempt, result);
        if (result.alert == fv2Alert::FailPassword)
            m_ports.tokenWanted();
        else if (!result.ok)
            m_ports.unanswered();
    });
}

void FV2PasswordHandOver::finish(Attempt& attempt, const CommandResult& result) {
    attempt.password.wipe();
    if (const auto asker = attempt.asker.asker.lock())
        attempt.asker.done(result);
}

} // namespace fv2
