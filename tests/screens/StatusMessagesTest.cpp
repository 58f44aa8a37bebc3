// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/Fakes.h"
#include "screens/status/ProtectionStatusSubviewController.h"
#include "shell/FV2Palette.h"
#include "toolkit/NxQtColor.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

using Messages = std::vector<FV2StatusMesssageListItem>;

FV2StatusMesssageListItem message(const std::string& title, fv2AppCommand command = fv2AppCommand::EnterEncPassword,
                                  fv2StatusStateType status = fv2StatusStateType::Red) {
    return {"", title, "It is so. <A TYPE=\"COMMAND\" TITLE\">Change it</A>, or <B>leave</B> it.", status, command};
}

Messages numbered(int count) {
    Messages all;
    while (count-- > 0)
        all.push_back(message("Message " + std::to_string(count)));
    return all;
}

//! The real page on a model among fakes, alone in a window.
class StatusMessages : public Model {
protected:
    void SetUp() override {
        OxTranslatedString::setApplicationBundle(strings);
        page.emplace(*model, config);
        auto* const column = new QVBoxLayout(&window);
        column->addWidget(page->view());
        column->addWidget(&behind);
        window.resize(480, 474);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    //! The model makes its list of what the service says, which is never more than three messages.
    void show(const Messages& messages) {
        const_cast<FV2AppState&>(model->state()).statusMessageList = messages;
        page->updateFromModel();
    }
    StatusMessagesTableView& table() const { return *window.findChild<StatusMessagesTableView*>(); }
    //! From top to bottom, without those that wait for their end.
    std::vector<StatusMessageItemSubview*> rows() const {
        std::vector<StatusMessageItemSubview*> all;
        std::ranges::copy_if(window.findChildren<StatusMessageItemSubview*>(), std::back_inserter(all),
                             [](const QWidget* each) { return each->isVisible(); });
        return all;
    }
    StatusMessageItemTextAndLink& text(std::size_t row) const {
        return *rows().at(row)->findChild<StatusMessageItemTextAndLink*>();
    }
    NxTextField& title(std::size_t row) const { return *rows().at(row)->findChild<NxTextField*>(); }
    bool isLinkInView(std::size_t row) const {
        const QRect goal = text(row).rectOfLink(0);
        const QPoint place = text(row).mapTo(table().viewport(), goal.topLeft());
        return table().viewport()->rect().contains(QRect(place, goal.size()));
    }
    static void settle() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
    }

    bool dark = false;
    QWidget window;
    QLineEdit behind;
    FV2AppConfigModel config{[this] { return dark; }, "", "", {}};
    std::optional<ProtectionStatusSubviewController> page;
};

TEST_F(StatusMessages, HaveReadableRowsAsHighAsTheirTextsAtEveryWidthAndFontSize) {
    Messages messages{message("A"), message("B", {}, fv2StatusStateType::Yellow), message("C", {}, {})};
    for (int count = 0; count < 30; ++count)
        messages[1].Text += "Wiederherstellungsschl\u00fcssel ";
    show(messages);
    EXPECT_EQ(rows().at(1)->accessibleName(),
              "B, MGUI_LEFT_MENU_COUNTER_STATE %1 MGUI_LEFT_MENU_COUNTER_STATE_WARNING %1");
    const QFont before = QApplication::font();
    for (const int points : {9, 20, 11})
        for (const int width : {480, 900, 300}) {
            QApplication::setFont(QFont(before.family(), points));
            window.resize(width, 474);
            settle();
            SCOPED_TRACE(std::to_string(points) + " pt, " + std::to_string(window.width()));
            constexpr int kMargin = StatusMessagesTableView::kMargin;
            int bottom = kMargin;
            for (std::size_t row = 0; row < 3; ++row) {
                const auto* const view = rows().at(row);
                EXPECT_EQ(view->parentWidget()->geometry(), QRect({kMargin, bottom}, view->size()));
                EXPECT_EQ(view->width(), table().viewport()->width() - 2 * kMargin);
                EXPECT_EQ(view->height(), view->heightForWidth(view->width()));
                EXPECT_GE(text(row).height(), text(row).heightForWidth(text(row).width()));
                EXPECT_EQ(title(row).font().pointSize(), points + 1);
                EXPECT_EQ(text(row).font().pointSize(), points);
                bottom += view->height() + StatusMessagesTableView::kRowGap;
            }
            EXPECT_GT(rows().at(1)->height(), rows().at(0)->height());
            bottom += kMargin - StatusMessagesTableView::kRowGap;
            EXPECT_EQ(table().verticalScrollBar()->maximum(), std::max(0, bottom - table().viewport()->height()));
        }
    QApplication::setFont(before);
    for (const bool isDark : {false, true}) {
        dark = isDark;
        table().setFocus();
        window.setPalette(windowPalette(isDark));
        const auto* const mark = table().findChild<NxView*>({}, Qt::FindDirectChildrenOnly);
        EXPECT_EQ(mark->borderColor(), window.palette().color(QPalette::Highlight));
        for (std::size_t row = 0; row < 3; ++row) {
            const QColor background = rows().at(row)->backgroundColor();
            EXPECT_GE(contrastOf(text(row).focusMarkColor(), background), 3) << isDark;
            for (const QColor& ink : {text(row).linkColor(), title(row).palette().color(QPalette::WindowText)})
                EXPECT_GE(contrastOf(ink, background), 4.5) << isDark;
        }
    }
}

TEST_F(StatusMessages, KeepRowsFocusAndPlaceWhereTheyAre) {
    Messages many = numbered(200);
    show(many);
    settle();
    text(150).focusLink(0);
    EXPECT_TRUE(isLinkInView(150));
    const int place = table().verticalScrollBar()->value();
    const auto all = rows();
    show(many);
    EXPECT_EQ(rows(), all) << "nothing is new";
    EXPECT_EQ(text(150).focusedLink(), 0U);

    many.erase(many.begin());
    many[149].Text = "Now. <A>x</A>";
    show(many);
    settle();
    EXPECT_EQ(text(149).focusedLink(), 0U);
    EXPECT_TRUE(isLinkInView(149));
    EXPECT_EQ(table().verticalScrollBar()->value(), place);

    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    table().verticalScrollBar()->setValue(0);
    many[2].Text = "So.";
    show(many);
    settle();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(text(149).focusedLink(), 0U) << "kept while another window was in use";
    EXPECT_EQ(table().verticalScrollBar()->value(), 0) << "scrolled away, to read something else";
    text(149).focusLink(0);
    EXPECT_TRUE(isLinkInView(149));
    QTest::keyClick(&text(149), Qt::Key_PageDown);
    EXPECT_FALSE(isLinkInView(149));
    many.erase(many.begin() + 149);
    show(many);
    EXPECT_TRUE(table().hasFocus());
    show({});
    EXPECT_TRUE(rows().empty());
}

TEST_F(StatusMessages, ComeRightBehindTheirTableInTheOrderOfTab) {
    for (const int count : {2, 30}) {
        Messages messages = numbered(count);
        messages[1].Text = "No link.";
        show(messages);
        settle();
        const auto back = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier); };
        behind.setFocus();
        for (auto row = messages.size(); row-- > 0;)
            if (row != 1) {
                back();
                EXPECT_TRUE(text(row).hasFocus()) << row << " of " << count;
            }
        back();
        EXPECT_EQ(table().hasFocus(), count == 30) << "the list itself only while it scrolls";
    }
}

//! A click may change the messages, and with them all rows, before it is over.
TEST_F(StatusMessages, RunTheirCommandOnce) {
    struct Rebuilding final : FakeInterface {
        void openWindow(fv2Window kind, bool userInitiated) override {
            FakeInterface::openWindow(kind, userInitiated);
            rebuild();
        }
        std::function<void()> rebuild;
    } windows;
    model->setWndDelegate(&windows);
    int changes = 0;
    windows.rebuild = [&] { show({message("A", {}), message("B" + std::to_string(++changes))}); };
    windows.rebuild();
    const auto doubleClick = [&](std::size_t row, QPoint place) {
        QTest::mouseClick(&text(row), Qt::LeftButton, {}, place);
        QTest::mouseDClick(&text(row), Qt::LeftButton, {}, place); // its second press alone, on the new view
        settle();
        return std::exchange(windows.calls, {});
    };
    const QPoint goal = text(1).rectOfLink(0).center();
    EXPECT_EQ(doubleClick(1, goal), "open 2 for user; ");
    EXPECT_EQ(doubleClick(1, {5, goal.y()}), "") << "a word beside the link";
    EXPECT_EQ(doubleClick(0, goal), "") << "a message without a command";
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace fv2::test
