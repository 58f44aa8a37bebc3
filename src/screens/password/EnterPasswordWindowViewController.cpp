// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/EnterPasswordWindowViewController.h"

#include "logging/FV2Logging.h"
#include "screens/password/EnterPasswordHint.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"
#include "ui_EnterPassword.h"

#include <algorithm>

namespace fv2 {

namespace {

std::string_view typedForLog([[maybe_unused]] const SecretText& typed) {
#ifdef FV2_LOG_TYPED_PASSWORD
    return typed.text();
#else
    return "***";
#endif
}

} // namespace

EnterPasswordWindowViewController::EnterPasswordWindowViewController(FV2AppStateModel& model,
                                                                     FV2AppConfigModel& configModel,
                                                                     std::string userName, bool isEncrypting)
    : FV2ViewController(model, configModel, new FV2View)
    , encrypting(isEncrypting)
    , m_userName(std::move(userName))
    , m_capsLock(nullptr)
    , m_guard(*view())
    , m_pause(new QTimer(view())) {
    Ui::EnterPassword outlets;
    outlets.setupUi(view());
    message = outlets.message;
    username = outlets.username;
    secureTextPasswordField = outlets.secureTextPasswordField;
    m_labels = {outlets.usernameLabel, outlets.passwordLabel};
    m_showButton = new NxImageButton;
    m_showButton->setObjectName(QStringLiteral("showButton"));
    secureTextPasswordField->setButton(m_showButton);
    m_hint = outlets.hint;
    m_hintSign = outlets.hintSign;
    okButton = new NxButton;
    m_postponeButton = new NxButton;
    outlets.buttons->addButton(okButton, QDialogButtonBox::AcceptRole);
    outlets.buttons->addButton(m_postponeButton, QDialogButtonBox::RejectRole);
    viewDidLoad();
    initsubview();
}

void EnterPasswordWindowViewController::viewDidLoad() {
    message->setStringValue(encrypting ? QStringLiteral("IDUS_PASSWORDDIALOG_MESSAGE_ENC")
                                       : QStringLiteral("IDUS_PASSWORDDIALOG_MESSAGE_DEC"));
    username->setElided(true);
    username->setText(QString::fromStdString(m_userName));
    addButtons();
    NxSecureTextField* const field = secureTextPasswordField;
    connect(field, &NxSecureTextField::secretChanged, this, &EnterPasswordWindowViewController::controlTextDidChange);
    connect(field, &QLineEdit::returnPressed, okButton, &NxButton::click);
    connect(field, &NxSecureTextField::inputRefused, this, [this] {
        m_refused = true;
        updateHint();
    });
    connect(field, &NxSecureTextField::revealedChanged, this, &EnterPasswordWindowViewController::showRevealed);
    connect(&m_capsLock, &FV2CapsLock::changed, this, &EnterPasswordWindowViewController::updateHint);
    connect(&m_guard, &EnterPasswordGuard::passed, this, &EnterPasswordWindowViewController::updateControls);
    m_pause->setSingleShot(true);
    m_pause->setInterval(kLongestPause);
    connect(&m_guard, &EnterPasswordGuard::keyPressed, m_pause, qOverload<>(&QTimer::start));
    connect(m_pause, &QTimer::timeout, this, &EnterPasswordWindowViewController::emptyField);
    updateControls();
}

void EnterPasswordWindowViewController::addButtons() {
    showRevealed(false);
    m_showButton->setAccessibleDescription(translated(QStringLiteral("IDUS_PASSWORDDIALOG_PASSWORD")));
    okButton->setTitle(encrypting ? QStringLiteral("IDUS_BUTTON_START_ENC") : QStringLiteral("IDUS_BUTTON_START_DEC"));
    okButton->setProminent(true);
    m_postponeButton->setTitle(QStringLiteral("IDUS_BUTTON_POSTPONE"));
    connect(m_showButton, &NxImageButton::clicked, this, &EnterPasswordWindowViewController::onShowButton);
    connect(okButton, &NxButton::clicked, this, &EnterPasswordWindowViewController::onOKButton);
    connect(m_postponeButton, &NxButton::clicked, this, &EnterPasswordWindowViewController::onPostponeButton);
    m_showButton->setFocusPolicy(Qt::TabFocus);
    for (NxButton* const button : {okButton.data(), m_postponeButton.data()}) {
        button->setAutoDefault(true); // Enter presses the one that has the focus
        button->setFocusPolicy(Qt::TabFocus);
    }
    QWidget::setTabOrder(secureTextPasswordField, m_showButton);
    QWidget::setTabOrder(m_showButton, okButton);
    QWidget::setTabOrder(okButton, m_postponeButton);
}

void EnterPasswordWindowViewController::refreshColours(const FV2AppConfigModel& config) {
    const QColor background = toQColor(config.colours().colourSectionBackground);
    view()->setBackgroundColor(background);
    for (const auto& label : m_labels)
        label->setTextColor(quietOn(background));
    m_hintSign->setTintColor(toQColor(config.designColour(NxDesignColor::Yellow)));
}

void EnterPasswordWindowViewController::controlTextDidChange() {
    const SecretText& typed = secureTextPasswordField->secret();
    log(FV2LoggingLevel::trace, {"chg -> Password is =", typedForLog(typed)});
    m_refused = false;
    m_pause->start(); // a mouse pastes without a key
    updateButtons();
    updateHint();
}

void EnterPasswordWindowViewController::updateButtons() {
    const bool isTyped = secureTextPasswordField->isEnabled() && !secureTextPasswordField->secret().empty();
    okButton->setEnabled(isTyped);
    m_showButton->setEnabled(isTyped);
}

//! What has the focus is what a screen reader reads out: the field, or why nothing can be typed into it.
void EnterPasswordWindowViewController::updateControls() {
    const bool canType = m_step == Step::Typing && !m_guard.isOn();
    updateHint();
    m_hint->setFocusPolicy(canType ? Qt::NoFocus : Qt::TabFocus);
    if (!canType)
        m_hint->setFocus();
    secureTextPasswordField->setEnabled(canType);
    if (canType)
        secureTextPasswordField->setFocus();
    okButton->setDefault(canType);
    m_postponeButton->setEnabled(m_step != Step::HandingOver); // what is sent can't be taken back
    updateButtons();
}

void EnterPasswordWindowViewController::emptyField() {
    if (m_step != Step::Typing)
        return;
    m_pause->stop();
    m_refused = false;
    secureTextPasswordField->setRevealed(false);
    const QSignalBlocker blocked(secureTextPasswordField);
    secureTextPasswordField->clear();
    updateButtons();
    updateHint();
}

void EnterPasswordWindowViewController::forget() {
    emptyField();
    m_guard.setOn(true);
    updateControls();
}

void EnterPasswordWindowViewController::onMadeKey() {
    m_guard.setOn(false);
    updateControls();
}

void EnterPasswordWindowViewController::showRevealed(bool revealed) {
    m_showButton->setTitle(revealed ? QStringLiteral("IDUS_BUTTON_HIDE_PASSWORD")
                                    : QStringLiteral("IDUS_BUTTON_SHOW_PASSWORD"));
    m_showButton->setImageName(revealed ? QStringLiteral("conceal_template") : QStringLiteral("reveal_template"));
}

void EnterPasswordWindowViewController::onShowButton() {
    const bool revealed = secureTextPasswordField->isRevealed();
    secureTextPasswordField->setFocus();
    secureTextPasswordField->setRevealed(!revealed);
}

void EnterPasswordWindowViewController::onOKButton() {
    if (m_step != Step::Typing || secureTextPasswordField->secret().empty())
        return;
    SecretText password = secureTextPasswordField->takeSecret();
    setStep(Step::Checking);
    appModel.submitPassword(m_userName, std::move(password),
                            {.asker = weak_from_this(),
                             .handingOver = [this] { setStep(Step::HandingOver); },
                             .done = [this](const CommandResult& result) { onAnswered(result); }});
}

void EnterPasswordWindowViewController::onAnswered(const CommandResult& result) {
    if (result.ok)
        Q_EMIT finished();
    else
        startAgain(result.errorCode, result.alert);
}

void EnterPasswordWindowViewController::startAgain(std::uint64_t errorCode, fv2Alert alert) {
    setStep(Step::Typing);
    emptyField();
    appModel.doAlert(kind(), errorCode, alert);
}

void EnterPasswordWindowViewController::onPostponeButton() {
    if (m_postponeButton->isEnabled())
        appModel.doAlert(kind(), 0, encrypting ? fv2Alert::PostponeEncWarning : fv2Alert::PostponeDecWarning);
}

void EnterPasswordWindowViewController::setStep(Step step) {
    m_step = step;
    updateControls();
}

void EnterPasswordWindowViewController::updateHint() {
    const EnterPasswordHint hint{.isChecking = m_step != Step::Typing,
                                 .waitsForUser = m_guard.isOn(),
                                 .wasRefused = m_refused,
                                 .capsLockIsOn = m_capsLock.isOn()};
    const QString text = hint.text();
    if (m_hint->text() == text)
        return;
    m_hint->setText(text);
    m_hintSign->setImageName(hint.sign());
    m_hintSign->setVisible(!hint.sign().isEmpty());
    m_hint->setAccessibleName(text);
    secureTextPasswordField->setAccessibleDescription(text);
}

fv2Window EnterPasswordWindowViewController::kind() const {
    return encrypting ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt;
}

} // namespace fv2
