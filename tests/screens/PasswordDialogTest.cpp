// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/Screens.h"
#include "screens/password/EnterPasswordGuard.h"
#include "support/QtLoop.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxImageButton.h"
#include "toolkit/NxSecureTextField.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include <sys/prctl.h>

namespace fv2::test {
namespace {

//! The real dialog on a model among fakes, for which "right" is everybody's password.
class PasswordDialog : public Screens {
protected:
    void open(bool encrypting = true) {
        refresh(statusAnswer(3), fv2SyncSource::Service, false); // brings a token
        kind = encrypting ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt;
        registry.openWindow(kind, true);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    void enter(const char* password) const {
        QTest::keyClicks(&field(), password);
        QTest::keyClick(&field(), Qt::Key_Return);
    }
    FV2Window& window() const { return registry.registeredController(kind)->window(); }
    template <class Widget>
    Widget& child(const char* name) const {
        return *window().findChild<Widget*>(QLatin1String(name));
    }
    NxSecureTextField& field() const { return child<NxSecureTextField>("secureTextPasswordField"); }
    NxImageButton& show() const { return child<NxImageButton>("showButton"); }
    NxButton& button(int position) const {
        return *qobject_cast<NxButton*>(child<QDialogButtonBox>("buttons").buttons().at(position));
    }
    NxButton& ok() const { return button(0); }
    NxButton& later() const { return button(1); }
    std::string text(const char* name) const { return child<NxTextField>(name).text().toStdString(); }
    long handedOver() const {
        return std::count_if(link.asked.begin(), link.asked.end(), [](const std::string& request) {
            return request.find("set_user_credentials") != request.npos;
        });
    }
    static void letDie() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    fv2Window kind = fv2Window::None;
};

TEST_F(PasswordDialog, AsksForThePasswordOfTheOneWhoIsLoggedIn) {
    for (const bool encrypting : {false, true}) {
        open(encrypting);
        EXPECT_EQ(window().height(), 300);
        EXPECT_EQ(text("message"), encrypting ? "PASSWORDDIALOG_MESSAGE_ENC %1" : "PASSWORDDIALOG_MESSAGE_DEC %1");
        EXPECT_EQ(text("username"), "anna");
        EXPECT_TRUE(field().hasFocus() && ok().isDefault() && !ok().isEnabled());
        const auto* const told = QAccessible::queryAccessibleInterface(&field());
        EXPECT_EQ(told->text(QAccessible::Name), "PASSWORDDIALOG_PASSWORD %1");
        QTest::keyClicks(&field(), "x");
        QTest::keyClick(&field(), Qt::Key_Escape);
        QTest::keyClick(&window(), Qt::Key_W, Qt::ControlModifier);
        EXPECT_FALSE(window().close());
        QWidget* focused = &field();
        for (QWidget* const next : std::initializer_list<QWidget*>{&show(), &ok(), &later(), &field()}) {
            QTest::keyClick(std::exchange(focused, next), Qt::Key_Tab);
            EXPECT_TRUE(next->hasFocus()) << next->objectName().toStdString();
        }
        later().click();
        EXPECT_EQ(window().attachedSheet()->content().informativeText,
                  encrypting ? "ALERT_WARNING_PASSWORD_POSTPONE_ENC %1" : "ALERT_WARNING_PASSWORD_POSTPONE_DEC %1");
        registry.closeAll();
    }
}

TEST_F(PasswordDialog, HandsARightPasswordToTheServiceAndCloses) {
    open();
    link.answerToOthers = R"({"result":true})";
    enter("right");
    EXPECT_FALSE(field().isEnabled() || show().isEnabled() || ok().isEnabled());
    EXPECT_TRUE(later().isEnabled()) << "a module of PAM may take for ever";
    EXPECT_EQ(text("hint"), "PASSWORDDIALOG_CHECKING %1");
    EXPECT_TRUE(child<NxTextField>("hint").hasFocus()) << "or no screen reader tells";
    EXPECT_EQ(handedOver(), 0) << "nothing waits on the main thread";
    dispatch.workers.at(0)();
    dispatch.workers.clear();
    dispatch.main.drain();
    EXPECT_FALSE(later().isEnabled()) << "what is sent can't be taken back";
    dispatch.settle();
    EXPECT_EQ(link.asked.back(),
              R"({"command":"set_user_credentials","uid":501,"token":"t1","parameters":{"username":"anna",)"
              R"("password":"right"}})");
    EXPECT_FALSE(registry.isOpen(kind));
    letDie();
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1) << "the password is still somewhere";
}

TEST_F(PasswordDialog, StaysAfterAFailureAndStartsAgain) {
    struct Case {
        const char *password, *answer, *alert;
        long handedOver;
    };
    open();
    for (const Case& each :
         {Case{"wrong", "", "ALERT_ERROR_PASSWORD_VALIDATION %1", 0},
          {"unreadable", "", "ALERT_ERROR_PASSWORD_UNCHECKED %1", 0},
          {"right", R"({"result":false,"error_code":255})", "ALERT_ERROR_PASSWORD_FAILURE %1 (0xFF)", 1},
          {"right", "", "ALERT_ERROR_COMMS %1", 2}}) {
        link.answerToOthers = each.answer;
        enter(each.password);
        dispatch.settle();
        ASSERT_NE(window().attachedSheet(), nullptr);
        EXPECT_EQ(window().attachedSheet()->content().informativeText, each.alert);
        window().attachedSheet()->reject();
        letDie();
        EXPECT_EQ(handedOver(), each.handedOver);
        EXPECT_TRUE(field().secret().empty() && field().text().isEmpty() && field().isEnabled());
        EXPECT_TRUE(window().focusWidget() == &field() && !ok().isEnabled() && later().isEnabled());
        EXPECT_EQ(text("hint"), "");
        QTest::keyClick(&field(), Qt::Key_Return);
        EXPECT_TRUE(dispatch.workers.empty()) << "there is nothing to check";
        QTest::keyClicks(&field(), "a");
        EXPECT_TRUE(ok().isEnabled());
        QTest::keyClick(&field(), Qt::Key_Backspace);
        EXPECT_FALSE(ok().isEnabled());
    }
}

TEST_F(PasswordDialog, SendsNothingOnceItHasGone) {
    for (const bool isDead : {false, true}) {
        open();
        enter("right");
        registry.closeAll();
        if (isDead)
            letDie();
        dispatch.settle();
        EXPECT_EQ(handedOver(), 0);
        letDie();
        EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    }
}

TEST_F(PasswordDialog, ForgetsWhatWasTypedWhenItIsHiddenButNotWhatIsBeingChecked) {
    open();
    QTest::keyClicks(&field(), "right");
    registry.hideApplicationWindows();
    EXPECT_TRUE(field().secret().empty());
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    registry.showAll();
    EXPECT_FALSE(ok().isEnabled());
    enter("right");
    registry.hideApplicationWindows();
    link.answerToOthers = R"({"result":true})";
    dispatch.settle();
    EXPECT_EQ(handedOver(), 1);
}

TEST_F(PasswordDialog, TellsOfCapsLockAndRefusedInputAndShowsThePassword) {
    open();
    struct Case {
        QEvent::Type type;
        bool before, on;
    };
    for (const Case& each : {Case{QEvent::KeyPress, false, true},
                             {QEvent::KeyRelease, true, true},
                             {QEvent::KeyPress, true, false},
                             {QEvent::KeyRelease, true, false}}) {
        QKeyEvent event(each.type, Qt::Key_CapsLock, {}, 0, 0, each.before ? 2 : 0);
        QApplication::sendEvent(window().windowHandle(), &event);
        EXPECT_EQ(text("hint"), each.on ? "PASSWORDDIALOG_CAPS_LOCK %1" : "") << each.before;
        EXPECT_EQ(field().accessibleDescription().toStdString(), text("hint"));
    }
    QTest::keyClicks(&field(), QString(513, u'x'));
    EXPECT_EQ(text("hint"), "PASSWORDDIALOG_REFUSED %1");
    QTest::keyClick(&field(), Qt::Key_Backspace);
    EXPECT_EQ(text("hint"), "");
    show().setFocus();
    for (const bool revealed : {true, false}) {
        show().click();
        EXPECT_TRUE(field().hasFocus() && field().isRevealed() == revealed);
        EXPECT_EQ(show().title(), revealed ? "IDUS_BUTTON_HIDE_PASSWORD" : "IDUS_BUTTON_SHOW_PASSWORD");
    }

    QTest::keyClicks(&field(), "yz");
    EXPECT_EQ(text("hint"), "PASSWORDDIALOG_REFUSED %1");
    for (QTimer* const timer : window().findChildren<QTimer*>())
        if (timer->intervalAsDuration() == std::chrono::minutes(5)) {
            EXPECT_GT(timer->remainingTime(), 299'000);
            timer->start(1);
        }
    EXPECT_TRUE(runLoopUntil([this] { return field().secret().empty(); })) << "without a key for long";
    EXPECT_EQ(text("hint"), "") << "goes with what it was about";
    EXPECT_TRUE(field().hasFocus() && !ok().isEnabled());
}

TEST_F(PasswordDialog, TakesNoKeyBeforeTheUserHasMovedIntoIt) {
    const auto press = [this](Qt::Key key) { QTest::keyClick(window().windowHandle(), key); };
    const auto isShut = [&] {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Return, Qt::Key_W})
            press(key);
        QInputMethodEvent composed;
        composed.setCommitString("word");
        QApplication::sendEvent(QApplication::focusObject(), &composed);
        return field().text().isEmpty() && dispatch.workers.empty() && window().attachedSheet() == nullptr &&
               !field().isEnabled() && !ok().isEnabled() && !ok().isDefault() &&
               child<NxTextField>("hint").hasFocus() && text("hint") == "PASSWORDDIALOG_MOVE_IN %1";
    };
    const auto isOpen = [&] {
        press(Qt::Key_A);
        return window().focusWidget() == &field() && ok().isDefault() && field().secret().text().ends_with("a");
    };
    refresh(statusAnswer(3), fv2SyncSource::Service, false);
    kind = fv2Window::Password_Encrypt;
    registry.openWindow(kind, false);
    window().activateWindow(); // as some desktops do
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_TRUE(isShut());
    runLoopFor(2 * EnterPasswordGuard::kPause);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t", true);
    QApplication::sendEvent(window().focusWidget(), &held);
    EXPECT_FALSE(field().isEnabled());
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {}, field().mapTo(&window(), field().rect().center()));
    EXPECT_TRUE(isOpen());
    registry.hideApplicationWindows();
    registry.showAll();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_TRUE(isOpen()) << "the user has asked for it";
}

TEST_F(PasswordDialog, GrowsUntilEverythingFits) {
    open();
    QFont large = window().font();
    large.setPixelSize(34);
    window().setFont(large);
    child<NxTextField>("message").setText(QString(300, u'm'));
    child<NxTextField>("username").setText(QString(200, u'm'));
    EXPECT_TRUE(runLoopUntil([this] {
        const auto& message = child<NxTextField>("message");
        const QRect lowest(later().mapTo(&window(), QPoint()), later().size());
        return message.height() >= message.heightForWidth(message.width()) && window().rect().contains(lowest);
    }));
    EXPECT_GT(window().height(), 600);
    EXPECT_LT(window().width(), 1500) << "a long name is cut";
}

} // namespace
} // namespace fv2::test
