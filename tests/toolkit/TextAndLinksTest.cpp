// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextAndLinksView.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! Each stretch with what it has got: "x|y:b i link=<A> hand colour tip=…".
std::string written(const NxAttributedString& text) {
    std::string all;
    for (int index = 0; index < text.length(); ++index) {
        const auto& at = text.attributesAt(index);
        if (index == 0 || at != text.attributesAt(index - 1))
            all += (index == 0 ? "" : "|") + std::string(at.bold ? "b " : "") + (at.italic ? "i " : "") +
                   (at.link ? "link=" + at.link->value.toStdString() + " " : "") + (at.pointingHand ? "hand " : "") +
                   (at.textColor.isValid() ? at.textColor.name().toStdString() + " " : "") +
                   (at.toolTip.isEmpty() ? "" : "tip=" + at.toolTip.toStdString() + " ") + ":";
        all += QString(text.string().at(index)).toStdString();
    }
    return all;
}

TEST(TagMapper, GivesRangesWhatTheirTagsStandFor) {
    struct Case {
        const char* markup;
        const char* expected;
        const char* buttons = "";
    };
    const std::vector<Case> table{
        {"<b>x</b><i>y</i><a>z</a>", ":xyz"},
        {"<I><B>x</B>y</I>", "b i :xy"},
        {"<A TYPE=\"COMMAND\" COMMAND=\"RETRY-SYNC\" TITLE\">go</A>",
         "link=<A TYPE=\"COMMAND\" COMMAND=\"RETRY-SYNC\" TITLE\"> hand #0000ff :go"},
        {"<A 1>x</A><A 1>y</A>", "link=<A 1> hand #0000ff :x|link=<A 1> hand #0000ff :y"},
        {R"(<X TITLE="a > b">x</X>)", ": b\">x"},
        {R"(<B TITLE=here a="tip">x</B>)", "b tip=tip :x"},
        {R"(<X TITLE="a"><Y TITLE="b">x</Y>y</X>)", "tip=a :xy"},
        {R"(<BUTTON TITLE="1">x</BUTTON><BUTTONS>y</BUTTONS>)", ":xy", R"(<BUTTONS>;<BUTTON TITLE="1">)"},
        {"\U0001F512ab<B>c</B>d", ":??a|b :b|:cd"},
        {"x<B>y", ":x<B>y"},
    };
    for (const Case& each : table) {
        const auto made = prepareAttrStrAndButtonsWithHtml(QString::fromUtf8(each.markup), {}, {}, Qt::blue);
        EXPECT_EQ(written(made.attributedString), each.expected) << each.markup;
        EXPECT_EQ(made.buttons.join(u';').toStdString(), each.buttons) << each.markup;
    }
    EXPECT_EQ(prepareAttrStrWithHtml(QStringLiteral("<A>x</A>"), QFont(), Qt::red).attributesAt(0).textColor, Qt::red);
    // Bytes that no character begins with are none; one that is cut is one.
    EXPECT_EQ(textFromScanner("\x80"
                              "a\xC3\x28\xF0\x9F\x94x\xC3\xBC"),
              QStringLiteral("a\uFFFD(\uFFFDx\u00fc"));
    EXPECT_EQ(textFromScanner("\xEF\xBB\xBFx\xFF"), QStringLiteral("\uFEFFx\uFFFD"));
}

//! Remembers the links that were run.
struct View final : NxTextAndLinksView {
    using NxTextAndLinksView::NxTextAndLinksView;
    void clickedOnLink(int index) override { clicks.push_back(index); }
    std::vector<int> clicks;
};

class TextAndLinks : public ::testing::Test {
protected:
    void SetUp() override {
        auto* const column = new QHBoxLayout(&window);
        for (QWidget* const each : std::initializer_list<QWidget*>{&before, &view, &after})
            column->addWidget(each);
        view.setHtmlCode(QStringLiteral("ab <A TITLE=\"&lt;tip\">cd ef</A> gh <A>ij</A>."));
        window.resize(800, 100);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QPoint middleOf(std::size_t link) const { return view.rectOfLink(link).center(); }

    QWidget window;
    QLineEdit before;
    View view;
    QLineEdit after;
};

TEST_F(TextAndLinks, ReactsToTheMouse) {
    before.setFocus();
    const QPoint text(NxTextAndLinksView::kPadding + 1, middleOf(0).y());
    for (const auto& [place, shape] : {std::pair(text, Qt::ArrowCursor),
                                       {middleOf(0), Qt::PointingHandCursor},
                                       {view.rect().bottomRight(), Qt::ArrowCursor}}) {
        QTest::mouseMove(&view, place);
        EXPECT_EQ(view.cursor().shape(), shape);
    }
    EXPECT_TRUE(before.hasFocus()) << "a word that is being typed goes on where it began";
    QTest::mouseClick(&view, Qt::LeftButton, {}, middleOf(1));
    QTest::mouseDClick(&view, Qt::LeftButton, {}, middleOf(1)); // only the second press of one
    QTest::mouseClick(&view, Qt::RightButton, {}, middleOf(1));
    QTest::mouseClick(&view, Qt::LeftButton, {}, view.rect().bottomRight());
    ASSERT_EQ(view.clicks.size(), 1U);
    EXPECT_EQ(view.links().at(1).start, 12);
    EXPECT_TRUE(view.clicks[0] == 12 || view.clicks[0] == 13);

    QHelpEvent help(QEvent::ToolTip, middleOf(0), view.mapToGlobal(middleOf(0)));
    QCoreApplication::sendEvent(&view, &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("<p>&amp;lt;tip</p>"));
}

TEST_F(TextAndLinks, IsWalkedAndRunByKeyboard) {
    before.setFocus();
    const QImage calm = view.grab().toImage();
    const auto tab = [](Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, with);
    };
    tab();
    EXPECT_EQ(view.focusedLink(), 0U);
    const QPoint edge(view.rectOfLink(0).left() - 2, middleOf(0).y());
    EXPECT_EQ(view.grab().toImage().pixelColor(edge), view.palette().color(QPalette::Highlight));
    EXPECT_NE(calm.pixelColor(edge), view.palette().color(QPalette::Highlight));
    tab();
    EXPECT_EQ(view.focusedLink(), 1U);
    for (const auto& [key, with, runs] : {std::tuple(Qt::Key_Return, Qt::NoModifier, true),
                                          {Qt::Key_Enter, Qt::KeypadModifier, true},
                                          {Qt::Key_Space, Qt::NoModifier, true},
                                          {Qt::Key_X, Qt::NoModifier, false},
                                          {Qt::Key_Return, Qt::AltModifier, false},
                                          {Qt::Key_Enter, Qt::ControlModifier, false},
                                          {Qt::Key_Space, Qt::ShiftModifier, false}}) {
        QTest::keyClick(&view, key, with);
        EXPECT_EQ(std::exchange(view.clicks, {}), runs ? std::vector<int>{12} : std::vector<int>()) << key << with;
    }
    tab();
    EXPECT_TRUE(after.hasFocus());
    tab(Qt::ShiftModifier);
    EXPECT_EQ(view.focusedLink(), 1U);
    tab(Qt::ShiftModifier);
    tab(Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    view.setHtmlCode(QStringLiteral("no links"));
    tab();
    EXPECT_TRUE(after.hasFocus());
}

TEST_F(TextAndLinks, TellsScreenReadersItsLinks) {
    QAccessibleInterface* const text = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(text->text(QAccessible::Name), QStringLiteral("ab cd ef gh ij."));
    ASSERT_EQ(text->childCount(), 2);
    QAccessibleInterface* const link = text->child(1);
    EXPECT_EQ(link->role(), QAccessible::Link);
    EXPECT_EQ(link->text(QAccessible::Name), QStringLiteral("ij"));
    EXPECT_EQ(text->indexOfChild(link), 1);
    EXPECT_EQ(text->childAt(link->rect().center().x(), link->rect().center().y()), link);
    EXPECT_FALSE(link->state().focused);
    link->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(link->state().focused);
    EXPECT_EQ(text->focusChild(), link);
    link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(view.clicks, std::vector<int>{12});
    view.setHtmlCode(QStringLiteral("<A>x</A>"));
    EXPECT_FALSE(link->isValid());
    EXPECT_EQ(text->child(0)->text(QAccessible::Name), QStringLiteral("x"));
}

TEST(TextAndLinksView, FollowsItsTextFontAndColours) {
    NxTextAndLinksView view;
    view.setHtmlCode(QStringLiteral("Wort <A>Wiederherstellungsschlüsselverwaltung</A>"), QFont(), Qt::black, Qt::red);
    view.resize(100, 100);
    view.show();
    QCoreApplication::processEvents();
    const int height = view.heightForWidth(view.width());
    EXPECT_GE(height, 3 * view.fontMetrics().height());
    EXPECT_LT(view.heightForWidth(1000), height);
    const QRect link = view.rectOfLink(0);
    for (int y = link.top() + 1; y < link.bottom(); ++y)
        EXPECT_TRUE(view.hasLinkAt(view.characterIndexAt({link.left() + 2, y}).value_or(0)))
            << "between its lines " << y;
    QImage before = view.grab().toImage();
    for (const auto change : {&NxTextAndLinksView::setLinkColor, &NxTextAndLinksView::setTextColor}) {
        (view.*change)(Qt::green);
        EXPECT_NE(std::exchange(before, view.grab().toImage()), view.grab().toImage());
    }
    view.setFont(QFont(view.font().family(), 2 * view.font().pointSize()));
    EXPECT_GT(view.heightForWidth(view.width()), height);
}

} // namespace
} // namespace fv2::test
