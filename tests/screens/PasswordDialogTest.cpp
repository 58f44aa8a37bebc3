// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/Fakes.h"
#include "platform/FV2AccountName.h"
#include "screens/FV2ScreenFactory.h"
#include "support/LogScope.h"
#include "support/QtLoop.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxSecureTextField.h"
#include "toolkit/NxTextField.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include <sys/prctl.h>

namespace fv2::test {
namespace {

//! The real dialog on a model among fakes, for which "right" is everybody's password.
class PasswordDialogTest : public Model {
protected:
    void SetUp() override {
        OxTranslatedString::setApplicationBundle(strings);
        model->setAppDelegate(interface);
        model->setWndDelegate(&registry);
        model->setAppConfigModel(
            std::make_unique<FV2AppConfigModel>([] { return false; }, "", "", ProductModel{"Business", "business"}));
        refresh(statusAnswer(3), fv2SyncSource::Service, false);
    }
    void TearDown() override {
        registry.closeAll();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open(fv2Window kind = fv2Window::Password_Encrypt) {
        registry.openWindow(kind, true);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window(kind)));
    }
    void enter(const char* password) {
        QTest::keyClicks(&field(), QString::fromUtf8(password));
        QTest::keyClick(&field(), Qt::Key_Return);
    }
    FV2Window& window(fv2Window kind = fv2Window::Password_Encrypt) const {
        return registry.registeredController(kind)->window();
    }
    template <class Widget>
    Widget& child(const char* name) const {
        return *window().findChild<Widget*>(QLatin1String(name));
    }
    NxSecureTextField& field() const { return child<NxSecureTextField>("secureTextPasswordField"); }
    NxButton& button(int position) const {
        return *qobject_cast<NxButton*>(child<QDialogButtonBox>("buttons").buttons().at(position));
    }
    NxButton& ok() const { return button(0); }
    NxButton& later() const { return button(1); }
    std::string hint() const { return child<NxTextField>("hint").text().toStdString(); }
    //! Closes the alert; its texts.
    std::string alert() const {
        FV2AlertSheet* const sheet = window().attachedSheet();
        if (sheet == nullptr)
            return "none";
        const std::string text = sheet->content().messageText + "|" + sheet->content().informativeText;
        sheet->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return text;
    }
    long handedOver() const {
        return std::count_if(link.asked.begin(), link.asked.end(), [](const std::string& request) {
            return request.find("set_user_credentials") != request.npos;
        });
    }

    FV2ScreenFactory screens{model};
    FV2WindowDelegate registry{model, screens};
};

TEST_F(PasswordDialogTest, AsksForThePasswordOfTheOneWhoIsLoggedIn) {
    const LogScope log{{FV2LoggingLevel::trace}};
    open();
    EXPECT_EQ(window().height(), 300);
    EXPECT_EQ(child<NxTextField>("message").text(), "PASSWORDDIALOG_MESSAGE_ENC %1");
    EXPECT_EQ(child<NxTextField>("username").text().toStdString(), accountName());
    EXPECT_TRUE(field().hasFocus() && ok().isDefault() && !ok().isEnabled());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field())->text(QAccessible::Name), "PASSWORDDIALOG_PASSWORD %1");
    QTest::keyClicks(&field(), QStringLiteral("xy"));
    QTest::keyClick(&field(), Qt::Key_Escape);
    QTest::keyClick(&window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window().close());
    EXPECT_FALSE(window().isCloseEnabled());
    EXPECT_EQ(std::string(field().secret().text()), "xy");
    QWidget* focused = &field();
    for (QWidget* const next :
         std::initializer_list<QWidget*>{&child<NxButton>("showButton"), &ok(), &later(), &field()}) {
        QTest::keyClick(std::exchange(focused, next), Qt::Key_Tab);
        EXPECT_TRUE(next->hasFocus()) << next->objectName().toStdString();
    }
    registry.closeAll();
    const auto lines = log.messages();
    const auto said = [&lines](const char* line) { return std::count(lines.begin(), lines.end(), line); };
    EXPECT_EQ(said("EnterPasswordWindowWindowController.init"), 1);
    EXPECT_EQ(said("chg -> Password is = ***"), 2);
    EXPECT_EQ(said("EnterPasswordWindowWindowController.windowWillClose"), 1);

    open(fv2Window::Password_Decrypt);
    EXPECT_EQ(window(fv2Window::Password_Decrypt).findChild<NxTextField*>(QStringLiteral("message"))->text(),
              "PASSWORDDIALOG_MESSAGE_DEC %1");
}

TEST_F(PasswordDialogTest, HandsARightPasswordToTheServiceAndCloses) {
    open();
    link.answerToOthers = R"({"result":true})";
    enter("right");
    for (QWidget* const control :
         std::initializer_list<QWidget*>{&field(), &child<NxButton>("showButton"), &ok(), &later()})
        EXPECT_FALSE(control->isEnabled());
    EXPECT_EQ(hint(), "PASSWORDDIALOG_CHECKING %1");
    EXPECT_TRUE(child<NxTextField>("hint").hasFocus()) << "or no screen reader tells";
    EXPECT_EQ(handedOver(), 0) << "nothing waits on the main thread";
    dispatch.settle();
    EXPECT_EQ(link.asked.back(),
              R"({"command":"set_user_credentials","uid":501,"token":"t1","parameters":{"username":")" + accountName() +
                  R"(","password":"right"}})");
    EXPECT_FALSE(registry.isOpen(fv2Window::Password_Encrypt));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1) << "the password is still somewhere";
}

TEST_F(PasswordDialogTest, StaysAfterAFailureAndStartsAgain) {
    struct Case {
        const char* password;
        const char* answer;
        const char* alert;
        long handedOver;
    };
    const Case table[] = {
        {"wrong", "", "ALERT_TITLE_PASSWORD_VALIDATION %1|ALERT_ERROR_PASSWORD_VALIDATION %1", 0},
        {"right", R"({"result":false,"error_code":255})",
         "ALERT_TITLE_PASSWORD_FAILURE %1|ALERT_ERROR_PASSWORD_FAILURE %1 (0xFF)", 1},
        {"right", "", "ALERT_TITLE_COMMS %1|ALERT_ERROR_COMMS %1", 2},
    };
    open();
    for (const Case& each : table) {
        link.answerToOthers = each.answer;
        enter(each.password);
        dispatch.settle();
        EXPECT_EQ(alert(), each.alert);
        EXPECT_EQ(handedOver(), each.handedOver);
        EXPECT_TRUE(field().secret().empty() && field().text().isEmpty() && field().isEnabled());
        EXPECT_EQ(window().focusWidget(), &field());
        EXPECT_FALSE(ok().isEnabled());
        EXPECT_TRUE(later().isEnabled());
        EXPECT_EQ(hint(), "");
        QTest::keyClick(&field(), Qt::Key_Return);
        EXPECT_TRUE(dispatch.workers.empty()) << "there is nothing to check";
        QTest::keyClicks(&field(), QStringLiteral("a"));
        EXPECT_TRUE(ok().isEnabled());
        QTest::keyClick(&field(), Qt::Key_Backspace);
        EXPECT_FALSE(ok().isEnabled());
    }
}

TEST_F(PasswordDialogTest, SendsNothingOnceItHasGone) {
    const auto closeIt = [this] { registry.closeAll(); };
    const auto closeItForGood = [this] {
        registry.closeAll();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (const std::function<void()>& goes : {std::function<void()>(closeIt), std::function<void()>(closeItForGood)}) {
        open();
        enter("right");
        goes();
        dispatch.settle();
        EXPECT_EQ(handedOver(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    }
}

TEST_F(PasswordDialogTest, IsPostponedOnceThatIsConfirmed) {
    open();
    later().click();
    EXPECT_EQ(alert(), "ALERT_TITLE_PASSWORD_WARNING %1|ALERT_WARNING_PASSWORD_POSTPONE_ENC %1");
    EXPECT_TRUE(registry.isOpen(fv2Window::Password_Encrypt));
    later().click();
    window().attachedSheet()->accept();
    dispatch.settle();
    EXPECT_FALSE(registry.isOpen(fv2Window::Password_Encrypt));
}

TEST_F(PasswordDialogTest, ShowsCapsLockRefusedInputAndThePassword) {
    open();
    const auto press = [this](QEvent::Type type, Qt::Key key, bool lockBefore) {
        QKeyEvent event(type, key, {}, 0, 0, lockBefore ? 2 : 0);
        QApplication::sendEvent(window().windowHandle(), &event);
    };
    struct Case {
        QEvent::Type type;
        Qt::Key key;
        bool before, on;
    };
    const Case table[] = {
        {QEvent::KeyPress, Qt::Key_CapsLock, false, true},   {QEvent::KeyRelease, Qt::Key_CapsLock, true, true},
        {QEvent::KeyPress, Qt::Key_Shift, true, true},       {QEvent::KeyPress, Qt::Key_CapsLock, true, false},
        {QEvent::KeyRelease, Qt::Key_CapsLock, true, false}, {QEvent::KeyPress, Qt::Key_Shift, true, true},
        {QEvent::KeyPress, Qt::Key_Shift, false, false},
    };
    for (const Case& each : table) {
        press(each.type, each.key, each.before);
        EXPECT_EQ(hint(), each.on ? "PASSWORDDIALOG_CAPS_LOCK %1" : "") << each.key << each.before;
        EXPECT_EQ(field().accessibleDescription().toStdString(), hint());
    }
    auto& show = child<NxButton>("showButton");
    EXPECT_FALSE(show.isEnabled());
    QTest::keyClicks(&field(), QString(512, u'x'));
    QTest::keyClicks(&field(), QStringLiteral("y"));
    EXPECT_EQ(hint(), "PASSWORDDIALOG_REFUSED %1");
    QTest::keyClick(&field(), Qt::Key_Backspace);
    EXPECT_EQ(hint(), "");
    show.setFocus();
    QTest::keyClick(&show, Qt::Key_Space);
    EXPECT_TRUE(field().isRevealed() && field().hasFocus());
    EXPECT_EQ(show.title(), "IDUS_BUTTON_HIDE_PASSWORD");
    QTest::mouseClick(&show, Qt::LeftButton);
    EXPECT_FALSE(field().isRevealed());
    EXPECT_EQ(show.title(), "IDUS_BUTTON_SHOW_PASSWORD");
}

TEST_F(PasswordDialogTest, GrowsUntilEverythingFits) {
    open();
    QFont large = window().font();
    large.setPixelSize(34);
    window().setFont(large);
    child<NxTextField>("message").setText(QString(300, u'm'));
    child<NxTextField>("username").setText(QString(200, u'm'));
    const auto fits = [this] {
        const auto texts = window().findChildren<NxTextField*>();
        const QRect lowest(later().mapTo(&window(), QPoint()), later().size());
        return window().rect().contains(lowest) && std::all_of(texts.begin(), texts.end(), [](const NxTextField* text) {
                   return text->height() >= text->heightForWidth(text->width());
               });
    };
    EXPECT_TRUE(runLoopUntil(fits));
    EXPECT_GT(window().height(), 600);
    EXPECT_LT(window().width(), 1500) << "a long name is cut";
}

} // namespace
} // namespace fv2::test
