// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2CapsLock.h"
#include "screens/password/EnterPasswordGuard.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxImageButton.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxSecureTextField.h"
#include "toolkit/NxTextField.h"

#include <QPointer>
#include <QTimer>

#include <array>
#include <chrono>
#include <memory>
#include <string>

namespace fv2 {

//! What is in the password dialog. A password goes to the service only when this computer takes it for the user's.
//! Ignores keys until the user has asked for the window or moved into it. Main thread only; results after its
//! destruction are dropped.
class EnterPasswordWindowViewController final : public FV2ViewController,
                                                public std::enable_shared_from_this<EnterPasswordWindowViewController> {
    Q_OBJECT
public:
    EnterPasswordWindowViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                      std::string userName, bool encrypting);

    //! What was typed and is not being checked is kept for this long without a key.
    static constexpr std::chrono::minutes kLongestPause{5};

    //! The user has left: empties the field, unless its password is being checked, and waits for the user to come back.
    void forget();
    //! The user has asked for the window.
    void onMadeKey();
    //! Switches on and off what can be used now, and gives the focus to it.
    void updateControls();

    //! Asks whether the password is to be typed later; not while that can't be chosen.
    void onPostponeButton();

Q_SIGNALS:
    //! The service has accepted the password.
    void finished();

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    enum class Step : std::uint8_t { Typing, Checking, HandingOver };

    void viewDidLoad();
    void addButtons();
    void controlTextDidChange();
    void emptyField();
    void updateButtons();
    void showRevealed(bool revealed);
    void onShowButton();
    void onOKButton();
    void onAnswered(const CommandResult& result);
    //! After a failure: everything is as at first, and the alert says why.
    void startAgain(std::uint64_t errorCode, fv2Alert alert);
    void setStep(Step step);
    void updateHint();
    [[nodiscard]] fv2Window kind() const;

    const bool encrypting;
    const std::string m_userName;
    FV2CapsLock m_capsLock;
    EnterPasswordGuard m_guard;
    QPointer<QTimer> m_pause;
    QPointer<NxTextField> message;
    QPointer<NxTextField> username;
    QPointer<NxSecureTextField> secureTextPasswordField;
    QPointer<NxButton> okButton;
    QPointer<NxButton> m_postponeButton;
    QPointer<NxImageButton> m_showButton;
    std::array<QPointer<NxTextField>, 2> m_labels;
    QPointer<NxTextField> m_hint;
    QPointer<NxImageView> m_hintSign;
    Step m_step = Step::Typing;
    bool m_refused = false; //!< the last input was
};

} // namespace fv2
