// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxSecureTextField.h"

#include "support/QtLoop.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <gtest/gtest.h>

#include <sys/prctl.h>

namespace fv2::test {
namespace {

struct SecureField : testing::Test {
    using Step = std::function<void()>;

    SecureField() {
        field.resize(300, 30);
        field.show();
        field.setFocus();
        QObject::connect(&field, &NxSecureTextField::inputRefused, [this] { ++refusals; });
    }

    //! A key as a keyboard's layout sends it.
    Step key(Qt::Key key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
        return [=, this] {
            QKeyEvent press(QEvent::KeyPress, key, with, text);
            QApplication::sendEvent(&field, &press);
        };
    }
    Step type(const QString& text) {
        return [=, this] {
            for (const char32_t each : text.toUcs4())
                key(Qt::Key_unknown, {}, QString::fromUcs4(&each, 1))();
        };
    }
    Step paste(const QString& text) {
        return [=, this] {
            QGuiApplication::clipboard()->setText(text);
            key(Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"))();
        };
    }
    //! What an input method does: puts `text` in place of `length` characters, shows `preedit`.
    Step compose(const QString& text, int from = 0, int length = 0, const QString& preedit = {}) {
        return [=, this] {
            QInputMethodEvent event(preedit, {});
            event.setCommitString(text, from, length);
            QApplication::sendEvent(&field, &event);
        };
    }
    std::string secret() const { return std::string(field.secret().text()); }
    bool isEmpty() const { return secret().empty() && field.text().isEmpty(); }

    NxSecureTextField field;
    int refusals = 0;
};

TEST_F(SecureField, ChangesTheSecretAsTheBaseClassChangesTheDots) {
    const auto ctrl = Qt::ControlModifier;
    struct Case {
        int caret, selected;
        Step step;
        const char* left;
        int caretAfter;
    };
    const Case table[] = {
        {2, 0, type("e\u0301🔒"), "aße\u0301🔒€🔑 z", 5},
        {2, 0, key(Qt::Key_At, ctrl | Qt::AltModifier, "@"), "aß@€🔑 z", 3}, // AltGr
        {3, 0, key(Qt::Key_Backspace), "aß🔑 z", 2},
        {3, 0, key(Qt::Key_Delete), "aß€ z", 3},
        {1, 3, key(Qt::Key_Backspace), "a z", 1},
        {0, 6, key(Qt::Key_Delete), "", 0},
        {3, 0, key(Qt::Key_Backspace, ctrl), "🔑 z", 0},
        {3, 0, key(Qt::Key_Delete, ctrl), "aß€", 3},
        {0, 6, key(Qt::Key_Z, ctrl), "aß€🔑 z", 6},
        {0, 6, key(Qt::Key_X, ctrl), "aß€🔑 z", 6},
        {1, 2, paste("1\t 2\r\n3"), "a1\t 2🔑 z", 5},
        {1, 2, paste("\nx"), "aß€🔑 z", 3},
        {4, 0, compose("日本", -1, 2), "aß€日本z", 5},
        {4, 0, compose("", -2, 1), "aß🔑 z", 2},
        {1, 3, compose("", 0, 0, "ni"), "a z", 1},
        {1, 3, compose("你", 0, 0, "h"), "a你 z", 2},
    };
    for (const Case& each : table) {
        field.clear();
        type("aß€🔑 z")();
        field.setCursorPosition(each.caret);
        if (each.selected > 0)
            field.setSelection(each.caret, each.selected);
        each.step();
        EXPECT_EQ(secret(), each.left);
        EXPECT_EQ(field.cursorPosition(), each.caretAfter) << each.left;
        EXPECT_EQ(field.text(), QString(QString::fromUtf8(each.left).toUcs4().size(), QChar(0x25cf)));
        EXPECT_FALSE(field.displayText().contains(u'h') || field.displayText().contains(u'i'));
    }
    EXPECT_EQ(refusals, 0);
}

TEST_F(SecureField, RefusesAsAWholeWhatDoesNotFitOrIsNoText) {
    paste(QString(511, u'x'))();
    for (const QString& each : {QString("é"), QString(QChar(0xd83d)), "a" + QString(QChar()), QString(1 << 20, u'z')})
        paste(each)();
    EXPECT_EQ(secret(), std::string(511, 'x'));
    EXPECT_EQ(field.text().size(), 511);
    EXPECT_EQ(refusals, 4);
    type("yz")();
    EXPECT_EQ(field.secret().size(), 512U);
    EXPECT_EQ(refusals, 5);
}

TEST_F(SecureField, GivesNothingAwayAndBringsNothingBack) {
    const auto isDumpable = [] { return ::prctl(PR_GET_DUMPABLE) == 1; };
    QGuiApplication::clipboard()->setText("before");
    type("secret")();
    EXPECT_FALSE(isDumpable());
    field.setRevealed(true);
    auto* const told = QAccessible::queryAccessibleInterface(&field);
    EXPECT_TRUE(told->state().passwordEdit);
    EXPECT_FALSE(told->text(QAccessible::Value).contains(u's'));
    EXPECT_EQ(told->textInterface()->text(0, 6), QString());
    field.selectAll();
    key(Qt::Key_C, Qt::ControlModifier)();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString("before"));
    key(Qt::Key_Backspace)();
    key(Qt::Key_Z, Qt::ControlModifier)();
    EXPECT_TRUE(isEmpty() && isDumpable());
    type("secret")();
    told->setText(QAccessible::Value, "foreign");
    EXPECT_TRUE(isEmpty()) << "both, when one was changed by somebody else";

    type("secret")();
    EXPECT_EQ(field.takeSecret().text(), "secret");
    EXPECT_TRUE(isDumpable() && field.text().size() == 6);
    type("x")();
    EXPECT_EQ(field.text().size(), 6);
    key(Qt::Key_Backspace)();
    EXPECT_TRUE(isEmpty());
}

TEST_F(SecureField, RevealsItsTextToTheEyeForAWhile) {
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    const auto picture = [this] { return field.grab().toImage(); };
    const auto revealed = [this] {
        field.setFocus();
        field.setRevealed(true);
        return field.isRevealed();
    };
    EXPECT_FALSE(revealed()) << "there is nothing to be seen";
    type("iiii")();
    const QImage hidden = picture();
    EXPECT_TRUE(revealed());
    QImage before = picture();
    EXPECT_NE(before, hidden);
    for (const Step& step :
         {key(Qt::Key_Left), key(Qt::Key_Delete), paste("W" + QString(200, u'm')), key(Qt::Key_Home)}) {
        step();
        EXPECT_NE(std::exchange(before, picture()), picture()) << "caret, text and what of it is in sight";
    }
    const int narrow = field.fontMetrics().horizontalAdvance("iii");
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(8 + narrow, 15));
    EXPECT_EQ(field.cursorPosition(), 3) << "clicks count in what is shown: iii, then W";

    field.clearFocus();
    EXPECT_FALSE(field.isRevealed());
    EXPECT_TRUE(revealed());
    auto* const end = field.findChild<QTimer*>();
    EXPECT_EQ(end->intervalAsDuration(), std::chrono::seconds(5));
    end->start(1);
    EXPECT_TRUE(runLoopUntil([this] { return !field.isRevealed(); }));
    EXPECT_TRUE(revealed());
    field.selectAll();
    key(Qt::Key_Delete)();
    type("a")();
    EXPECT_FALSE(field.isRevealed());
}

} // namespace
} // namespace fv2::test
