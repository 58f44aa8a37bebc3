// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "support/QtLoop.h"
#include "toolkit/NxSecureTextField.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QInputMethodEvent>
#include <QTest>
#include <gtest/gtest.h>

#include <sys/prctl.h>

namespace fv2::test {
namespace {

struct SecureField : testing::Test {
    SecureField() {
        field.resize(300, 30);
        field.show();
        field.activateWindow();
        field.setFocus();
        QObject::connect(&field, &NxSecureTextField::inputRefused, [this] { ++refusals; });
        QObject::connect(&field, &NxSecureTextField::secretChanged, [this] { ++changes; });
    }

    //! A key as a keyboard's layout sends it.
    void key(Qt::Key key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, with, text);
        QApplication::sendEvent(&field, &press);
    }
    void type(const QString& text) {
        for (const char32_t each : text.toUcs4())
            key(Qt::Key_unknown, {}, QString::fromUcs4(&each, 1));
    }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        key(Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
    }
    void commit(const QString& text, int from = 0, int length = 0) {
        QInputMethodEvent event;
        event.setCommitString(text, from, length);
        QApplication::sendEvent(&field, &event);
    }
    std::string secret() const { return std::string(field.secret().text()); }
    //! Dots that are shown.
    long dots() const { return field.text().size(); }

    NxSecureTextField field;
    int refusals = 0;
    int changes = 0;
};

TEST_F(SecureField, KeepsEachCharacterThatIsTypedAndShowsADot) {
    type(QStringLiteral("aß€ e\u0301"));
    type(QStringLiteral("\U0001F511"));
    key(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("@")); // AltGr
    key(Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
    key(Qt::Key_End);
    key(Qt::Key_Tab, {}, QStringLiteral("\t"));
    EXPECT_EQ(secret(), "aß€ e\u0301\U0001F511@");
    EXPECT_EQ(dots(), 8);
    EXPECT_EQ(field.text().count(field.text().front()), 8) << "all dots alike";
    EXPECT_EQ(changes, 8);
}

TEST_F(SecureField, DeletesWholeCharactersWhereverTheBaseClassDoes) {
    struct Case {
        int caret, selected;
        Qt::Key key;
        Qt::KeyboardModifiers with;
        const char* left;
        int caretAfter;
    };
    const Case table[] = {
        {3, 0, Qt::Key_Backspace, {}, "aß🔑 z", 2},
        {4, 0, Qt::Key_Backspace, {}, "aß€ z", 3},
        {3, 0, Qt::Key_Delete, {}, "aß€ z", 3},
        {1, 3, Qt::Key_Backspace, {}, "a z", 1},
        {1, 3, Qt::Key_Delete, {}, "a z", 1},
        {0, 6, Qt::Key_Delete, {}, "", 0},
        {3, 0, Qt::Key_Backspace, Qt::ControlModifier, "🔑 z", 0},
        {3, 0, Qt::Key_Delete, Qt::ControlModifier, "aß€", 3},
        {0, 0, Qt::Key_Backspace, {}, "aß€🔑 z", 0},
        {6, 0, Qt::Key_Delete, {}, "aß€🔑 z", 6},
        {2, 2, Qt::Key_Left, {}, "aß€🔑 z", 3},
    };
    for (const Case& each : table) {
        field.clear();
        type(QStringLiteral("aß€🔑 z"));
        if (each.selected > 0)
            field.setSelection(each.caret, each.selected);
        else
            field.setCursorPosition(each.caret);
        key(each.key, each.with);
        EXPECT_EQ(secret(), each.left) << each.caret << each.key;
        EXPECT_EQ(field.cursorPosition(), each.caretAfter) << each.caret << each.key;
        EXPECT_EQ(dots(), QString::fromUtf8(each.left).toUcs4().size());
    }
    EXPECT_EQ(changes, 11 * 7 + 8) << "one for each letter, clear() and deletion";
}

TEST_F(SecureField, InsertsPastesAndComposesInPlaceOfTheSelection) {
    type(QStringLiteral("a🔑z"));
    field.setSelection(1, 1);
    type(QStringLiteral("é"));
    EXPECT_EQ(secret(), "aéz");
    EXPECT_EQ(field.cursorPosition(), 2);
    paste(QStringLiteral("1\t 2\r\n3"));
    EXPECT_EQ(secret(), "aé1\t 2z");
    paste(QStringLiteral("\nx"));
    EXPECT_EQ(secret(), "aé1\t 2z");
    commit(QStringLiteral("日本"), -1, 2); // what an input method corrects
    EXPECT_EQ(secret(), "aé1\t 日本");
    commit({}, -2, 1);
    EXPECT_EQ(secret(), "aé1\t 本");
    field.setSelection(0, 5);
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QApplication::sendEvent(&field, &composing);
    EXPECT_EQ(secret(), "本");
    EXPECT_EQ(field.displayText().count(QLatin1Char('n')), 0);
    commit(QStringLiteral("你"));
    EXPECT_EQ(secret(), "你本");
    EXPECT_EQ(dots(), 2);
    EXPECT_EQ(refusals, 0);
}

TEST_F(SecureField, RefusesAsAWholeWhatDoesNotFitOrIsNoText) {
    paste(QString(511, u'x'));
    struct Case {
        QString text;
        std::size_t bytes;
    };
    const Case table[] = {{QStringLiteral("é"), 511},  {QStringLiteral("yz"), 511},        {QString(QChar(0xd83d)), 511},
                          {QString(QChar()), 511},     {QStringLiteral("a") + QChar(), 511}, {QStringLiteral("y"), 512},
                          {QStringLiteral("z"), 512}, {QString(1 << 20, u'z'), 512}};
    for (const Case& each : table) {
        paste(each.text);
        EXPECT_EQ(field.secret().size(), each.bytes) << each.text.size();
        EXPECT_EQ(dots(), static_cast<long>(each.bytes));
    }
    EXPECT_EQ(refusals, 7);
    field.setSelection(0, 2);
    type(QStringLiteral("é"));
    EXPECT_EQ(secret().substr(0, 3), "éx");
}

TEST_F(SecureField, GivesNothingAwayAndUndoesNothing) {
    type(QStringLiteral("secret"));
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    field.selectAll();
    for (const Qt::Key each : {Qt::Key_C, Qt::Key_X, Qt::Key_Z, Qt::Key_Y})
        key(each, Qt::ControlModifier);
    key(Qt::Key_Backspace);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(secret(), "");
    EXPECT_EQ(dots(), 0);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    EXPECT_FALSE(field.acceptDrops());

    type(QStringLiteral("secret"));
    field.setRevealed(true);
    auto* const told = QAccessible::queryAccessibleInterface(&field);
    EXPECT_TRUE(told->state().passwordEdit);
    EXPECT_FALSE(told->text(QAccessible::Value).contains(QLatin1Char('s')));
    EXPECT_EQ(told->textInterface()->text(0, 6), QString());
    told->setText(QAccessible::Value, QStringLiteral("foreign"));
    EXPECT_EQ(secret() + field.text().toStdString(), "") << "both, when one was changed by somebody else";
}

TEST_F(SecureField, HandsItsTextOverOnceAndIsDumpableAfterwards) {
    type(QStringLiteral("secret"));
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 0);
    {
        const SecretText taken = field.takeSecret();
        EXPECT_EQ(taken.text(), "secret");
        EXPECT_TRUE(field.secret().empty());
        EXPECT_EQ(dots(), 6);
        type(QStringLiteral("x"));
        EXPECT_EQ(dots(), 6);
        key(Qt::Key_Backspace);
        EXPECT_EQ(dots(), 0);
    }
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    type(QStringLiteral("y"));
    field.clear();
    EXPECT_EQ(secret() + field.text().toStdString(), "");
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
}

TEST_F(SecureField, RevealsItsTextToTheEyeForAWhile) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    field.setRevealed(true);
    EXPECT_FALSE(field.isRevealed()) << "there is nothing to be seen";
    const auto picture = [this] { return field.grab().toImage(); };
    type(QStringLiteral("iiii"));
    const QImage hidden = picture();
    field.setRevealed(true);
    const QImage shown = picture();
    EXPECT_NE(shown, hidden);
    key(Qt::Key_Left);
    EXPECT_NE(picture(), shown) << "the caret is shown where it is";
    key(Qt::Key_Delete);
    type(QStringLiteral("W"));
    EXPECT_NE(picture(), shown);

    paste(QString(200, u'm'));
    const QImage last = picture();
    key(Qt::Key_Home);
    EXPECT_NE(picture(), last) << "long texts are scrolled to the caret";
    const int narrow = field.fontMetrics().horizontalAdvance(QStringLiteral("iii"));
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(4 + narrow, 15));
    EXPECT_EQ(field.cursorPosition(), 3) << "clicks count in what is shown: iii, then W";

    field.clearFocus();
    EXPECT_FALSE(field.isRevealed());
    field.setFocus();
    field.setRevealed(true);
    field.selectAll();
    key(Qt::Key_Delete);
    EXPECT_FALSE(field.isRevealed());
    type(QStringLiteral("a"));
    field.setRevealed(true);
    auto* const end = field.findChild<QTimer*>();
    EXPECT_EQ(end->intervalAsDuration(), std::chrono::seconds(5));
    EXPECT_TRUE(field.isRevealed() && end->isActive());
    end->start(1);
    EXPECT_TRUE(runLoopUntil([this] { return !field.isRevealed(); }));
}

} // namespace
} // namespace fv2::test
