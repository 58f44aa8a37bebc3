// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/Screens.h"
#include "screens/main/LeftMenuRowDelegate.h"

#include <QTest>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

using Page = eMainWindowContentSubViewType;

using MainWindowTest = Screens;

TEST_F(MainWindowTest, HasTheSizesOfTheConfiguration) {
    open();
    EXPECT_EQ(window().size(), QSize(690, 510));
    window().resize(100, 100);
    EXPECT_EQ(window().size(), QSize(690, 510));
    window().resize(900, 700);
    QCoreApplication::processEvents();
    const auto place = [this](const QString& name) {
        const auto* const view = window().findChild<QWidget*>(name);
        return QRect(view->mapTo(&window(), QPoint()), view->size());
    };
    EXPECT_EQ(place(QStringLiteral("LeftMenuSubview")), QRect(0, 0, 210, 700));
    EXPECT_EQ(place(QStringLiteral("ProtectionStatusSubview")), QRect(210, 0, 690, 664));
    EXPECT_EQ(place(QStringLiteral("TaglineView")), QRect(210, 664, 690, 36));
    EXPECT_EQ(menu().visualItemRect(menu().item(1)).height(), 32);
    EXPECT_EQ(window().windowTitle(), "PRODUCT_DISPLAY_NAME %1");
}

TEST_F(MainWindowTest, SwitchesPagesThatAreMadeOnceAndKept) {
    open();
    EXPECT_EQ(pages().currentContentType(), Page::ProtectionStatus);
    const FV2ViewController* const status = pages().currentContentViewController();
    pages().switchContentSubview(Page::About);
    const FV2ViewController* const about = pages().currentContentViewController();
    pages().switchContentSubview(Page::Setup);
    pages().switchContentSubview(Page::ProtectionStatus);
    EXPECT_EQ(pages().currentContentViewController(), status);
    EXPECT_FALSE(about->view()->isVisible()) << "a page underneath would be found by the keyboard";
    pages().switchContentSubview(Page::About);
    EXPECT_EQ(pages().currentContentViewController(), about);
    EXPECT_TRUE(about->view()->isVisible());
}

TEST_F(MainWindowTest, ShowsStateAndNumberOfMessagesInTheMenusFirstRow) {
    struct Case {
        std::string answer;
        QString number, bubble, icon, spoken;
        QColor text;
        QString line;
    };
    const QColor dim(63, 68, 74);
    const std::string synchronisationFailed = R"(,"sync_ok":0)";
    const std::vector<Case> cases{
        {statusAnswer(6), "", "", "home_template", "", {}, "ok_white_32x32"},
        {statusAnswer(1), "1", "yellow_notification_bubble", "warning_template", "WARNING", dim, "warning_white_32x32"},
        {statusAnswer(1, synchronisationFailed), "2", "yellow_notification_bubble", "warning_template", "WARNING", dim,
         "warning_white_32x32"},
        {statusAnswer(12), "1", "red_notification_bubble", "error_template", "ERROR", Qt::white, "threat_white_32x32"},
        {statusAnswer(3, synchronisationFailed), "3", "red_notification_bubble", "error_template", "ERROR", Qt::white,
         "threat_white_32x32"},
        {statusAnswer(10), "", "", "home_template", "", {}, "ok_white_32x32"},
    };
    open();
    for (const Case& tested : cases) {
        refreshShown(tested.answer);
        SCOPED_TRACE(tested.answer);
        const bool bubble = !tested.number.isEmpty();
        EXPECT_EQ(cell(0).counterImage().isVisible(), bubble);
        EXPECT_EQ(cell(0).counterNumberField().isVisible(), bubble);
        EXPECT_EQ(cell(0).imageView().imageName(), tested.icon);
        const QString spoken = menu().item(0)->data(Qt::AccessibleDescriptionRole).toString();
        if (bubble) {
            EXPECT_EQ(cell(0).counterNumberField().text(), tested.number);
            EXPECT_EQ(cell(0).counterImage().imageName(), tested.bubble);
            EXPECT_EQ(textColour(cell(0).counterNumberField()), tested.text);
            EXPECT_TRUE(spoken.startsWith(tested.number + ", ") && spoken.contains(tested.spoken))
                << spoken.toStdString();
        } else {
            EXPECT_EQ(spoken, "MGUI_PROTECTION_STATUS_INDICATOR_ACC_HELP %1");
        }
        EXPECT_EQ(window().findChild<NxImageView*>(QStringLiteral("statusLineIcon"))->imageName(), tested.line);
        EXPECT_FALSE(cell(1).counterImage().isVisible());
    }
}

//! How often the service has been asked, and the page that is then shown, after each thing that a user does.
TEST_F(MainWindowTest, IsLedByMouseAndKeyboard) {
    open();
    dispatch.settle();
    const auto did = [this](const auto& something) {
        const long before = asked();
        timers.advance(FV2RefreshGate::spacing);
        something();
        dispatch.settle();
        return std::pair(asked() - before, pages().currentContentType());
    };
    using Done = std::pair<long, Page>;
    const auto click = [this](int row) {
        QTest::mouseClick(menu().viewport(), Qt::LeftButton, {}, menu().visualItemRect(menu().item(row)).center());
    };
    const auto type = [this](Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(menu().hasFocus() ? static_cast<QWidget*>(&menu()) : &window(), key, with);
    };
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_TRUE(menu().hasFocus());
    EXPECT_EQ(did([&] { click(1); }), Done(1, Page::About));
    EXPECT_EQ(did([&] { click(1); }), Done(1, Page::About)) << "asks again, rebuilds nothing";
    EXPECT_EQ(did([&] { type(Qt::Key_Up); }), Done(1, Page::ProtectionStatus));
    EXPECT_EQ(did([&] { type(Qt::Key_Return); }), Done(1, Page::ProtectionStatus));
    EXPECT_EQ(did([&] { type(Qt::Key_2, Qt::ControlModifier); }), Done(1, Page::About));
    EXPECT_EQ(did([&] { type(Qt::Key_1, Qt::ControlModifier); }), Done(1, Page::ProtectionStatus));
    EXPECT_EQ(did([&] { click(1); }), Done(1, Page::About));
    EXPECT_EQ(did([&] { registry.selectProtectionStatusPage(); }), Done(0, Page::ProtectionStatus));

    const auto press = [this](Qt::MouseButton button, Qt::KeyboardModifiers with, QPoint place) {
        QTest::mouseClick(menu().viewport(), button, with, place);
    };
    const QPoint first = menu().visualItemRect(menu().item(0)).center();
    const QPoint second = menu().visualItemRect(menu().item(1)).center();
    EXPECT_EQ(did([&] { press(Qt::RightButton, {}, second); }), Done(0, Page::ProtectionStatus));
    EXPECT_EQ(did([&] { press(Qt::LeftButton, {}, QPoint(50, 300)); }), Done(0, Page::ProtectionStatus));
    EXPECT_EQ(did([&] { press(Qt::LeftButton, Qt::ControlModifier, first); }), Done(1, Page::ProtectionStatus));
    EXPECT_EQ(menu().selectedItems().value(0), menu().item(0));
    EXPECT_EQ(did([&] { menu().item(1)->setSelected(true); }), Done(1, Page::About)) << "as a screen reader does it";

    type(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(registry.isOpen(fv2Window::Main));
    type(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(registry.isOpen(fv2Window::Main));
}

TEST_F(MainWindowTest, ColoursFollowSelectionAndAppearance) {
    refreshShown(statusAnswer(12));
    open();
    const auto text = [this](int row) { return textColour(cell(row).textField()); };
    EXPECT_EQ(text(0), QColor(Qt::white));
    EXPECT_EQ(text(1), QColor(190, 190, 190));
    pages().selectPage(Page::About);
    EXPECT_EQ(text(0), QColor(190, 190, 190));
    EXPECT_EQ(cell(1).imageView().tintColor(), QColor(Qt::white));
    EXPECT_EQ(shownAt(QStringLiteral("AboutSubview")), QColor(Qt::white));
    EXPECT_EQ(shownAt(QStringLiteral("leftmenuView")), QColor(63, 68, 74));
    dark = true;
    registry.refreshAppearance();
    EXPECT_EQ(shownAt(QStringLiteral("AboutSubview")), QColor(34, 36, 39));
    EXPECT_EQ(shownAt(QStringLiteral("backgroundView")), QColor(34, 36, 39));
    EXPECT_EQ(shownAt(QStringLiteral("viewSeperator")), QColor(63, 70, 78));
    pages().selectPage(Page::ProtectionStatus);
    EXPECT_EQ(shownAt(QStringLiteral("statusLineView")), QColor(220, 73, 65));
    window().closeWindow();
    open();
    EXPECT_EQ(shownAt(QStringLiteral("backgroundView")), QColor(34, 36, 39)) << "a new window is dark from the start";
}

//! Screen readers ask where its rows are before the menu has its size, while it still scrolls.
TEST_F(MainWindowTest, FillsTheMenusWidthWithRowsThatWereLaidOutEarly) {
    QWidget parent;
    LeftMenuTableView table(&parent);
    table.setItemDelegate(new LeftMenuRowDelegate(32, &table));
    table.addItems({"one", "two"});
    table.setItemWidget(table.item(0), new NxLeftMenuCellView(&table));
    parent.show();
    table.resize(210, 20);
    EXPECT_FALSE(table.visualItemRect(table.item(1)).isNull());
    table.resize(210, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(table.itemWidget(table.item(0))->width(), 210);
}

} // namespace
} // namespace fv2::test
