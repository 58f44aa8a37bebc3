// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Texts.h"
#include "resources/NxDesign.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxLeftMenuCellView.h"
#include "toolkit/NxLeftMenuCounter.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! A row that counts the presses that reach it.
class Row final : public QWidget {
public:
    int presses = 0;

private:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

QColor middleOf(QWidget& badge) {
    return badge.grab().toImage().pixelColor(badge.width() / 2, 2);
}

TEST(LeftMenuCounter, ShowsAndTellsTheNumberInTheColourOfTheStatus) {
    Texts::use();
    NxDesign::setResource([] {
        return "<plist><dict><key>Colors</key><dict><key>Red</key><array><string>C00000</string></array>"
               "<key>Green</key><array><string>008000</string></array><key>Yellow</key><array><string>FFC000</string>"
               "</array><key>Blue</key><array><string>0040FF</string></array></dict></dict></plist>";
    });
    Row row;
    NxLeftMenuCounter badge(&row);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&badge);
    struct Case {
        unsigned status;
        QColor colour;
        const char* description;
    };
    const Case table[] = {
        {0, QColor(0x008000), "3, <b>STATE & b <b>OK & b"},
        {1, QColor(0xffc000), "3, <b>STATE & b <b>WARNING & b"},
        {2, QColor(0xc00000), "3, <b>STATE & b <b>ERROR & b"},
        {3, QColor(0x0040ff), "3, <b>STATE & b <b>INFO & b"},
        {7, QColor(0x0040ff), "3, <b>STATE & b "},
    };
    for (const Case& each : table) {
        badge.setNumber(0);
        badge.setStatus(each.status);
        EXPECT_TRUE(badge.isHidden());
        EXPECT_EQ(told->text(QAccessible::Value), QString());
        badge.setNumber(3);
        EXPECT_FALSE(badge.isHidden());
        EXPECT_EQ(badge.status(), each.status);
        EXPECT_EQ(told->text(QAccessible::Value), QString::fromUtf8(each.description));
        badge.resize(badge.sizeHint());
        EXPECT_EQ(middleOf(badge), each.colour) << each.status;
    }
    badge.setProperty("color", QColor());
    EXPECT_EQ(middleOf(badge), QColor(Qt::white));
    badge.setAccessibilityLabel(QStringLiteral("IDUS_LABEL"));
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("<b>LABEL & b"));

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&badge, &press);
    EXPECT_EQ(row.presses, 1);
    EXPECT_FALSE(badge.isDown());
}

TEST(LeftMenuCounter, SignalsBeforeAndAfter) {
    NxLeftMenuCounter badge;
    std::vector<qlonglong> seen;
    QObject::connect(&badge, &NxLeftMenuCounter::numberWillChange, [&] { seen.push_back(badge.number()); });
    QObject::connect(&badge, &NxLeftMenuCounter::numberDidChange, [&] { seen.push_back(badge.number()); });
    badge.setProperty("number", -5);
    badge.setNumber(0);
    EXPECT_EQ(seen, (std::vector<qlonglong>{0, -5, -5, 0}));
}

TEST(LeftMenuCell, KeepsEveryTextReadableBesideTheBubble) {
    Row row;
    NxLeftMenuCellView cell(&row);
    cell.resize(210, 32);
    EXPECT_EQ(row.childAt(20, 16), nullptr);
    NxTextField& field = cell.textField();
    for (const char* number : {"", "7", "12345"}) {
        cell.counterNumberField().setText(QString::fromUtf8(number));
        cell.counterImage().setVisible(*number != '\0');
        const int bubbleLeft = *number != '\0' ? cell.counterImage().geometry().left() : 198;
        for (const char* text : {"Status", "Verschlüsselungsstatus", "Status der Verschlüsselung",
                                 "Status der Verschlüsselung dieses Rechners und aller seiner Laufwerke"}) {
            field.setText(QString::fromUtf8(text));
            const bool isCut = !field.toolTip().isEmpty();
            EXPECT_EQ(isCut, strlen(text) > 40) << text << number;
            EXPECT_EQ(cell.toolTip(), field.toolTip());
            EXPECT_LT(field.geometry().right(), bubbleLeft);
            if (!isCut) {
                EXPECT_LE(field.sizeOfText(field.width(), field.font()).height(), 32) << text << number;
                EXPECT_GE(field.font().pointSizeF(), cell.font().pointSizeF() * 0.79);
            }
        }
    }
    EXPECT_GE(cell.counterImage().width(), 12 + cell.counterNumberField().sizeHint().width());
    EXPECT_EQ(cell.counterImage().geometry(), cell.counterNumberField().geometry());
}

} // namespace
} // namespace fv2::test
