// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Texts.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxView.h"

#include <QAccessible>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

QImage picture(QWidget& widget, double ratio = 1) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

TEST(View, TakesItsColoursFromTheKindOfPalette) {
    NxView view;
    view.resize(20, 20);
    view.setBackgroundColor(Qt::red);
    view.setDarkBackgroundColor(Qt::blue);
    view.setBorderColor(Qt::green);
    view.setBorderWidth(2);
    view.setBorderEdges(Qt::TopEdge | Qt::RightEdge);
    const auto colourAt = [&](int x, int y) { return picture(view).pixelColor(x, y); };
    for (const bool dark : {false, true}) {
        view.setPalette(QPalette(dark ? Qt::black : Qt::white));
        EXPECT_EQ(colourAt(10, 10), QColor(dark ? Qt::blue : Qt::red));
        EXPECT_EQ(colourAt(10, 1), QColor(Qt::green));
        EXPECT_EQ(colourAt(18, 10), QColor(Qt::green));
        EXPECT_NE(colourAt(10, 2), QColor(Qt::green));
        EXPECT_NE(colourAt(0, 10), QColor(Qt::green));
    }
    view.setBorderEdges(NxView::kAllEdges);
    view.setCornerRadius(8);
    view.setGradientStart(Qt::white);
    view.setGradientEnd(Qt::black);
    EXPECT_EQ(colourAt(0, 0).alpha(), 0);
    EXPECT_EQ(colourAt(0, 10), QColor(Qt::green));
    EXPECT_GT(colourAt(10, 4).lightness(), colourAt(10, 15).lightness() + 100);
}

TEST(TextField, ShowsTranslatedAndPlainTextsLetterByLetter) {
    Texts::use();
    NxTextField field;
    field.setStringValue(QStringLiteral("IDUS_A"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("IDUS_A"));
    EXPECT_EQ(field.text(), QStringLiteral("<b>A & b"));
    EXPECT_GE(field.sizeHint().width(), field.fontMetrics().horizontalAdvance(QStringLiteral("<b>A & b")));
    field.setStringValue(QStringLiteral("IDUS_NONE"));
    EXPECT_EQ(field.text(), QStringLiteral("!IDUS_NONE"));
    field.setText(QStringLiteral("IDUS_A"));
    EXPECT_EQ(field.text(), QStringLiteral("IDUS_A"));
    EXPECT_EQ(field.stringValue(), QString());

    NxButton button;
    button.setTitle(QStringLiteral("IDUS_A"));
    EXPECT_TRUE(button.shortcut().isEmpty());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), QStringLiteral("<b>A & b"));
}

TEST(TextField, BreaksLongWordsOrCutsTheTextAndTellsItWhole) {
    NxTextField field;
    field.setText(QStringLiteral("<i>Wiederherstellungsschlüsselverwaltung"));
    field.setWordWrap(true);
    const int line = field.fontMetrics().height();
    EXPECT_GE(field.heightForWidth(80), 3 * line);
    EXPECT_LE(field.sizeOfText(80, field.font()).width(), 80);

    field.show();
    field.resize(80, line);
    field.setElided(true);
    EXPECT_EQ(field.heightForWidth(80), -1);
    QTextDocument toolTip;
    toolTip.setHtml(field.toolTip());
    EXPECT_EQ(toolTip.toPlainText(), field.text());
    field.resize(800, line);
    EXPECT_EQ(field.toolTip(), QString());
}

TEST(ImageView, PaintsAPictureSharplyInItsOwnColourOrATint) {
    NxImageView view;
    view.setImageName(QStringLiteral("red_notification_bubble"));
    EXPECT_EQ(view.sizeHint(), QSize(22, 18));
    view.resize(60, 18);
    for (const double ratio : {1.0, 2.0}) {
        for (const bool stretched : {false, true}) {
            view.setStretchesMiddle(stretched);
            view.setTintColor({});
            const auto colourAt = [&](int x) { return picture(view, ratio).pixelColor(QPoint(x, 9) * ratio); };
            EXPECT_EQ(colourAt(30), QColor(203, 68, 60));
            EXPECT_EQ(colourAt(5).alpha(), stretched ? 255 : 0);
            EXPECT_EQ(picture(view, ratio).pixelColor(0, 0).alpha(), 0);
            view.setTintColor(QColor(Qt::blue));
            EXPECT_EQ(colourAt(30), QColor(Qt::blue));
            EXPECT_EQ(colourAt(5).alpha(), stretched ? 255 : 0);
        }
    }
    view.setImageName(QStringLiteral("no_such_picture"));
    EXPECT_EQ(picture(view).pixelColor(30, 9).alpha(), 0);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&view)->role(), QAccessible::Graphic);
}

} // namespace
} // namespace fv2::test
