// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/OxTranslatedString.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxLeftMenuCellView.h"
#include "toolkit/NxTagMapper.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxView.h"

#include <QAccessible>
#include <QApplication>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! Texts that must be taken for no markup and no shortcut: "<b A & b" for "IDUS_A".
class Texts final : public OxStringBundle {
public:
    static void use() {
        static const Texts texts;
        OxTranslatedString::setApplicationBundle(texts);
    }
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override {
        return "<b " + identifier.substr(identifier.rfind('_') + 1) + " & b";
    }
};

QColor colourAt(QWidget& widget, int x, int y, double ratio = 1) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
}

TEST(View, TakesItsColoursFromTheKindOfPalette) {
    NxView view;
    view.resize(20, 20);
    view.setBackgroundColor(Qt::red);
    view.setDarkBackgroundColor(Qt::blue);
    view.setBorderColor(Qt::green);
    view.setBorderWidth(2);
    view.setBorderEdges(Qt::TopEdge | Qt::RightEdge);
    for (const bool dark : {false, true}) {
        view.setPalette(QPalette(dark ? Qt::black : Qt::white));
        const QColor inside(dark ? Qt::blue : Qt::red);
        for (const QPoint place : {QPoint(10, 10), QPoint(10, 2), QPoint(0, 10), QPoint(10, 19)})
            EXPECT_EQ(colourAt(view, place.x(), place.y()), inside) << dark;
        for (const QPoint place : {QPoint(10, 1), QPoint(18, 10)})
            EXPECT_EQ(colourAt(view, place.x(), place.y()), QColor(Qt::green)) << dark;
    }
    view.setBorderEdges(NxView::kAllEdges);
    view.setCornerRadius(8);
    EXPECT_EQ(colourAt(view, 0, 0).alpha(), 0);
    EXPECT_EQ(colourAt(view, 0, 10), QColor(Qt::green));
}

TEST(View, DrawsItsBorderEvenlyOnAScreenAt150Percent) {
    QWidget window;
    NxView view(&window);
    view.setGeometry(5, 7, 20, 20); // from 7.5 to 37.5 of the screen's pixels
    view.setBorderColor(Qt::green);
    for (const auto& [x, isBorder] : {std::pair{5, false}, {6, true}, {7, false}, {24, true}, {25, true}})
        EXPECT_EQ(colourAt(window, x, 15, 1.5) == QColor(Qt::green), isBorder) << x;
}

TEST(TextField, ShowsTextsLetterByLetterAndWholeOrTellsThem) {
    Texts::use();
    NxTextField field;
    field.setStringValue(QStringLiteral("IDUS_Wiederherstellungsschlüsselverwaltung"));
    EXPECT_EQ(field.text(), QStringLiteral("<b Wiederherstellungsschlüsselverwaltung & b"));
    EXPECT_GE(field.sizeHint().width(), field.fontMetrics().horizontalAdvance(field.text()));
    field.setWordWrap(true);
    const int line = field.fontMetrics().height();
    EXPECT_GE(field.heightForWidth(80), 3 * line);
    EXPECT_LE(field.sizeOfText(80, field.font()).width(), 80);

    field.resize(80, line);
    field.show();
    EXPECT_EQ(field.minimumSizeHint().height(), field.heightForWidth(field.width()));
    field.setElided(true);
    field.resize(80, line);
    QTextDocument toolTip;
    toolTip.setHtml(field.toolTip());
    EXPECT_EQ(toolTip.toPlainText(), field.text());
    field.resize(800, line);
    EXPECT_EQ(field.toolTip(), QString());
    EXPECT_EQ(field.stringValue(), QStringLiteral("IDUS_Wiederherstellungsschlüsselverwaltung"));
    field.setText(QStringLiteral("<b>x</b>"));
    EXPECT_EQ(field.text(), QStringLiteral("<b>x</b>")) << "only the application's own texts are HTML";

    NxButton button;
    button.setTitle(QStringLiteral("IDUS_A"));
    EXPECT_TRUE(button.shortcut().isEmpty());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), QStringLiteral("<b A & b"));
}

TEST(TextField, ShowsTheStylesOfAnApplicationsTextOfHtml) {
    struct Html final : OxStringBundle {
        [[nodiscard]] std::string localizedString(const std::string& /*identifier*/) const override {
            return "all <b>bold words</b><img src='/dev/zero'> <font color='#ff0000'>red</font><br>"
                   "<a href='file:///dev/zero'>end</a> &amp; so";
        }
    };
    static const Html html;
    OxTranslatedString::setApplicationBundle(html);
    NxTextField plain;
    plain.setText(QStringLiteral("all bold words red\nend & so"));
    NxTextField field;
    field.setTextColor(Qt::blue);
    field.setStringValue(QStringLiteral("IDUS_HTML"));
    EXPECT_EQ(field.text(), plain.text());
    EXPECT_GT(field.sizeHint().width(), plain.sizeHint().width());
    EXPECT_GE(field.sizeHint().height(), plain.sizeHint().height());
    field.resize(field.sizeHint());
    const QImage shown = field.grab().toImage();
    for (int place = 0; place < shown.width() * shown.height(); ++place) {
        const QColor colour = shown.pixelColor(place % shown.width(), place / shown.width());
        ASSERT_LE(colour.red(), colour.blue()) << "in the field's own colour";
    }
}

TEST(ImageView, PaintsAPictureInItsOwnColourOrATint) {
    NxImageView view;
    view.setImageName(QStringLiteral("red_notification_bubble"));
    EXPECT_EQ(view.sizeHint(), QSize(22, 18));
    view.resize(60, 18);
    for (const bool stretched : {false, true}) {
        view.setStretchesMiddle(stretched);
        for (const std::optional<QColor> tint : {std::optional<QColor>(), std::optional<QColor>(Qt::blue)}) {
            view.setTintColor(tint);
            EXPECT_EQ(colourAt(view, 30, 9, 2), tint.value_or(QColor(203, 68, 60)));
            EXPECT_EQ(colourAt(view, 5, 9, 2).alpha(), stretched ? 255 : 0);
        }
    }
    view.setImageName(QStringLiteral("no_such_picture"));
    EXPECT_EQ(colourAt(view, 30, 9).alpha(), 0);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&view)->role(), QAccessible::Graphic);
}

TEST(LeftMenuCell, KeepsEveryTextReadableBesideTheBubble) {
    QWidget row;
    NxLeftMenuCellView cell(&row);
    cell.resize(210, 32);
    EXPECT_EQ(row.childAt(20, 16), nullptr);
    NxTextField& field = cell.textField();
    for (const char* number : {"", "7", "12345"}) {
        cell.counterNumberField().setText(QString::fromUtf8(number));
        cell.counterImage().setVisible(*number != '\0');
        for (const char* text : {"Status", "Verschlüsselungsstatus", "Status der Verschlüsselung",
                                 "Status der Verschlüsselung dieses Rechners und aller seiner Laufwerke"}) {
            field.setText(QString::fromUtf8(text));
            EXPECT_LT(field.geometry().right(), *number != '\0' ? cell.counterImage().geometry().left() : 194);
            EXPECT_EQ(cell.wantedHeight(), field.heightForWidth(field.width())) << text << number;
        }
    }
    EXPECT_GE(cell.counterImage().width(), 12 + cell.counterNumberField().sizeHint().width());
    EXPECT_EQ((cell.counterImage().x() | cell.counterImage().y()) % 2, 0) << "blurred at 150 %";
}

} // namespace
} // namespace fv2::test
