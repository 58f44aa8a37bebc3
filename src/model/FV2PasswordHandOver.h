// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"
#include "model/FV2AppState.h"
#include "model/ports/FV2Dispatch.h"
#include "model/ports/FV2ServiceClient.h"
#include "model/ports/FV2UserAndPasswordModel.h"

#include <functional>
#include <memory>
#include <string>

namespace fv2 {

//! Who has typed a password and wants to hear what becomes of it. Called on the main thread, and not
//! once `asker` has died; may be destroyed on any thread.
struct FV2PasswordAsker {
    std::weak_ptr<const void> asker;
    //! The password is right and is now handed over, which can't be taken back.
    std::function<void()> handingOver;
    //! The end, good or bad; may be called before the hand-over returns.
    std::function<void(const CommandResult&)> done;
};

//! Brings the user's password to the service, if this computer takes it for right. Owns it from the first moment and
//! lets no byte of it outlive its use. Main thread only.
class FV2PasswordHandOver {
public:
    //! What the hand-over asks of its owner; nothing any more once `owner` has died.
    struct Ports {
        FV2Dispatch& dispatch;
        FV2ServiceClient& service;
        const FV2UserAndPasswordModel* passwords;
        const FV2AppState& state;
        std::weak_ptr<const void> owner;
        //! There is no token, or the service may have forgotten ours.
        std::function<void()> tokenWanted;
        //! The service could not be asked.
        std::function<void()> unanswered;
    };

    explicit FV2PasswordHandOver(Ports ports)
        : m_ports(std::move(ports)) {}

    //! While an earlier check has not ended no other one begins, as each may keep its worker for ever. Nothing is sent
    //! for an asker that has died meanwhile.
    void submit(std::string userName, SecretText password, FV2PasswordAsker asker);

private:
    struct Attempt;

    void verifyPassword(const std::shared_ptr<Attempt>& attempt);
    void onVerified(const std::shared_ptr<Attempt>& attempt, fv2PasswordCheck check);
    void setUserCredentials(const std::shared_ptr<Attempt>& attempt);
    //! Wipes what is left of the password and tells the asker.
    static void finish(Attempt& attempt, const CommandResult& result);

    const Ports m_ports;
    bool m_isCheckingPassword = false;
};

} // namespace fv2
