// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/Screens.h"
#include "toolkit/NxButton.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTest>

namespace fv2::test {
namespace {

class AboutTest : public Screens {
protected:
    void openAbout() {
        open();
        pages().selectPage(eMainWindowContentSubViewType::About);
    }
    std::string line(const QString& name) const {
        return window().findChild<QWidget*>(name)->accessibleName().toStdString();
    }
    NxButton& sync() const { return *window().findChild<NxButton*>(QStringLiteral("buttonProxySync")); }
};

TEST_F(AboutTest, ShowsTheServicesTextsAsTheyAre) {
    refreshShown(statusAnswer(6, R"(,"version":"<b>5</b>","uuid":"<img src='/dev/zero'>","sync_last":9)"));
    openAbout();
    EXPECT_EQ(line("fieldProductVersion"), "MGUI_PRODUCT_VERSION %1 <b>5</b>");
    EXPECT_EQ(line("fieldUUID"), "Workstation ID: <img src='/dev/zero'>");
    EXPECT_EQ(line("fieldOperatingSystem"), "MGUI_OPERATING_SYSTEM %1 An OS");
    EXPECT_EQ(line("fieldMachine"), "MGUI_MACHINE %1 A CPU");
    for (const auto* const field : window().findChildren<QLabel*>())
        EXPECT_EQ(field->textFormat(), Qt::PlainText);
    auto* const value = window().findChild<QLineEdit*>();
    value->selectAll();
    QTest::keyClick(value, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "<img src='/dev/zero'>");
    QTest::keyClick(value, Qt::Key_X);
    EXPECT_EQ(value->text(), "<img src='/dev/zero'>");
    QApplication::clipboard()->clear();
    value->deselect();
    QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), value->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(value, &click);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::mouseClick(QApplication::activePopupWidget(), Qt::LeftButton, {}, QPoint(5, 10));
    EXPECT_EQ(QApplication::clipboard()->text(), "<img src='/dev/zero'>");
    EXPECT_FALSE(window().findChild<NxButton*>(QStringLiteral("buttonInstalledComponents"))->isVisible());
}

TEST_F(AboutTest, TellsOfTheSynchronisationAndStartsOneAtATime) {
    struct Case {
        std::string answer, expected;
        bool enabled;
    };
    openAbout();
    for (const auto& [answer, expected, enabled] :
         std::vector<Case>{{statusAnswer(6), "UNKNOWN %1", true},
                           {statusAnswer(6, R"(,"sync_last":9)"), "today", true},
                           {statusAnswer(6, R"(,"sync_active":1)"), "MGUI_LAST_SYNC_ACTIVE %1", false},
                           {statusAnswer(4, R"(,"sync_active":1)"), "MGUI_LAST_SYNC_BLOCKED %1", false},
                           {statusAnswer(0, R"(,"sync_last":9)"), "UNKNOWN %1", false},
                           {"", "UNKNOWN %1", false}}) {
        refreshShown(answer);
        EXPECT_EQ(line("fieldLastORMSync"), "MGUI_LAST_SYNC %1 " + expected) << answer;
        EXPECT_EQ(sync().isEnabled(), enabled) << answer;
    }
    refreshShown(statusAnswer(6));
    sync().setFocus();
    link.answerToOthers = R"({"error_code":5})";
    QTest::keyClick(&sync(), Qt::Key_Space);
    EXPECT_FALSE(sync().isEnabled());
    QTest::mouseClick(&sync(), Qt::LeftButton);
    dispatch.settle();
    EXPECT_EQ(asked(proxySyncRequest(501, "t1")), 1);
    EXPECT_TRUE(sync().isEnabled()) << "refused, so no notification follows";
    EXPECT_EQ(window().focusWidget(), &sync());
    ASSERT_NE(window().attachedSheet(), nullptr);
    EXPECT_EQ(window().attachedSheet()->content().informativeText, "ALERT_ERROR_PROXYSYNC_PROBLEM %1 (0x5)");
}

} // namespace
} // namespace fv2::test
