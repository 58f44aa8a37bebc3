// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextAndLinksView.h"

#include "toolkit/NxTextAndLinksAccessible.h"
#include "toolkit/NxTextLines.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>

#include <cmath>
#include <map>

namespace fv2 {

//! Forming letters costs far more than breaking lines, and layouts ask for the same few widths again and again.
struct NxTextAndLinksView::Laid {
    Laid(const QString& text, const QFont& font, const QPaintDevice* device)
        : layout(text, font, device) {}

    QTextLayout layout;
    double overhang = 0;
    int width = -1; //!< of the view
    std::map<int, QSize> sizes;
};

NxTextAndLinksView::NxTextAndLinksView(QWidget* parent)
    : QWidget(parent) {
    NxTextAndLinksAccessible::install();
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_focusTelling.setSingleShot(true);
    m_focusTelling.setInterval(0);
    connect(&m_focusTelling, &QTimer::timeout, this, &NxTextAndLinksView::tellFocus);
}

NxTextAndLinksView::~NxTextAndLinksView() = default;

void NxTextAndLinksView::setHtmlCode(const QString& markup) {
    // The view's own font is taken when the text is laid out, so that it may change afterwards.
    setAttrStr(m_text, markup, std::nullopt, m_textColor, m_linkColor);
    textDidChange();
}

void NxTextAndLinksView::setHtmlCode(const QString& markup, const std::optional<QFont>& textFont,
                                     const QColor& fontColor, const QColor& linkColor) {
    if (textFont)
        setFont(*textFont);
    if (fontColor.isValid())
        m_textColor = fontColor;
    if (linkColor.isValid())
        m_linkColor = linkColor;
    setHtmlCode(markup);
}

void NxTextAndLinksView::setLinkColor(const QColor& colour) {
    if (m_linkColor == colour)
        return;
    m_linkColor = colour;
    m_text.changeLinks([&](NxAttributedString::Attributes& attributes) {
        attributes.textColor = colour.isValid() ? colour : m_textColor;
    });
    forgetLayout();
}

void NxTextAndLinksView::setTextColor(const QColor& colour) {
    m_textColor = colour;
    m_text.change([&](NxAttributedString::Attributes& attributes) {
        if (!attributes.link || !m_linkColor.isValid())
            attributes.textColor = colour;
    });
    forgetLayout();
}

void NxTextAndLinksView::setFocusMarkColor(const QColor& colour) {
    m_focusMarkColor = colour;
    update();
}

QColor NxTextAndLinksView::focusMarkColor() const {
    return m_focusMarkColor.isValid() ? m_focusMarkColor : palette().color(QPalette::Highlight);
}

void NxTextAndLinksView::textDidChange() {
    m_links = m_text.links();
    for (const NxAttributedString::LinkRange& link : m_links)
        m_text.change(link.start, link.end, [](NxAttributedString::Attributes& attributes) { attributes.bold = true; });
    m_focusedLink = 0;
    forgetLayout();
    setFocusPolicy(m_links.empty() ? Qt::NoFocus : Qt::TabFocus);
    setAccessibleName(string());
    updateGeometry();
}

void NxTextAndLinksView::forgetLayout() {
    m_laid.reset();
    update();
}

const QTextLayout& NxTextAndLinksView::layoutAt(int width) const {
    if (m_laid == nullptr) {
        m_laid = std::make_unique<Laid>(QString(string()).replace(u'\n', QChar::LineSeparator), font(), this);
        QTextLayout& layout = m_laid->layout;
        QTextOption option(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
        option.setTextDirection(layoutDirection());
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.setFormats(m_text.formats());
        layout.setCacheEnabled(true);
        m_laid->overhang = overhangOf(layout);
    }
    if (m_laid->width != width) {
        const QSizeF size = layOutLines(m_laid->layout, std::max(width - 2 * kPadding, 1), m_laid->overhang,
                                        kLineHeight * fontMetrics().height());
        if (m_laid->sizes.size() >= kRememberedWidths)
            m_laid->sizes.clear();
        m_laid->sizes[width] =
            QSize(static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height())))
                .grownBy({kPadding, kPadding, kPadding, kPadding});
        m_laid->width = width;
    }
    return m_laid->layout;
}

QSize NxTextAndLinksView::sizeAt(int width) const {
    if (m_laid == nullptr || !m_laid->sizes.contains(width))
        layoutAt(width);
    return m_laid->sizes.at(width);
}

QSize NxTextAndLinksView::sizeHint() const {
    return sizeAt(fontMetrics().averageCharWidth() * kComfortableLetters);
}

QSize NxTextAndLinksView::minimumSizeHint() const {
    const int fewLetters = fontMetrics().averageCharWidth() * kFewestLetters + 2 * kPadding;
    return {std::min(sizeHint().width(), fewLetters), heightForWidth(std::max(width(), fewLetters))};
}

int NxTextAndLinksView::heightForWidth(int width) const {
    return sizeAt(width).height();
}

std::optional<int> NxTextAndLinksView::characterIndexAt(const QPoint& place) const {
    const QPointF inText = QPointF(place) - QPointF(kPadding, kPadding);
    const QTextLayout& layout = layoutAt(width());
    for (int number = 0; number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        QRectF text = line.naturalTextRect();
        // Lines share what lies between them.
        if (number > 0)
            text.setTop((layout.lineAt(number - 1).naturalTextRect().bottom() + text.top()) / 2);
        if (number + 1 < layout.lineCount())
            text.setBottom((text.bottom() + layout.lineAt(number + 1).naturalTextRect().top()) / 2);
        if (!text.contains(inText))
            continue;
        const int index = line.xToCursor(inText.x(), QTextLine::CursorOnCharacter);
        return index < m_text.length() ? std::optional(index) : std::nullopt;
    }
    return std::nullopt;
}

std::vector<QRectF> NxTextAndLinksView::piecesOfLink(std::size_t link) const {
    const NxAttributedString::LinkRange& range = m_links.at(link);
    const QTextLayout& layout = layoutAt(width());
    std::vector<QRectF> pieces;
    for (int number = 0; number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        const int from = std::max(range.start, line.textStart());
        const int to = std::min(range.end, line.textStart() + line.textLength());
        if (from >= to)
            continue;
        const QRectF text = line.naturalTextRect();
        const auto [left, right] = std::minmax({line.cursorToX(from), line.cursorToX(to)});
        const double end = std::min(right, text.right()); // a blank at the end of a line takes no room
        pieces.emplace_back(left + kPadding, text.top() + kPadding, end - left, text.height());
    }
    return pieces;
}

QRect NxTextAndLinksView::rectOfLink(std::size_t link) const {
    QRectF all;
    for (const QRectF& piece : piecesOfLink(link))
        all |= piece;
    return all.toAlignedRect();
}

QVariant NxTextAndLinksView::inputMethodQuery(Qt::InputMethodQuery query) const {
    const auto focused = focusedLink();
    return query == Qt::ImCursorRectangle && focused ? rectOfLink(*focused) : QWidget::inputMethodQuery(query);
}

void NxTextAndLinksView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (const auto focused = focusedLink()) { // below the text, whose letters may touch the mark
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(focusMarkColor(), 2));
        for (const QRectF& piece : piecesOfLink(*focused))
            painter.drawRoundedRect(piece.adjusted(-2, -1, 2, 1), 4, 4);
    }
    painter.setPen(palette().color(foregroundRole()));
    layoutAt(width()).draw(&painter, {kPadding, kPadding});
}

void NxTextAndLinksView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size().width() == event->oldSize().width())
        return;
    updateGeometry(); // the least height is that of the new width
}

void NxTextAndLinksView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::LayoutDirectionChange)
        return;
    forgetLayout();
    updateGeometry();
}

bool NxTextAndLinksView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto index = characterIndexAt(help->pos());
    const QString toolTip = index ? m_text.attributesAt(*index).toolTip : QString();
    if (toolTip.isEmpty())
        QToolTip::hideText();
    else // A tooltip takes what looks like markup for markup.
        QToolTip::showText(help->globalPos(), QStringLiteral("<p>") + toolTip.toHtmlEscaped() + QStringLiteral("</p>"),
                           this);
    return true;
}

void NxTextAndLinksView::updateCursor(const QPoint& place) {
    const auto index = characterIndexAt(place);
    const auto shape = index && m_text.attributesAt(*index).pointingHand ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (m_currentCursor == shape)
        return;
    m_currentCursor = shape;
    setCursor(shape);
}

void NxTextAndLinksView::enterEvent(QEnterEvent* event) {
    setMouseTracking(true);
    updateCursor(event->position().toPoint());
}

void NxTextAndLinksView::leaveEvent(QEvent*) {
    setMouseTracking(false);
    m_currentCursor = Qt::ArrowCursor;
    unsetCursor();
}

void NxTextAndLinksView::mouseMoveEvent(QMouseEvent* event) {
    updateCursor(event->position().toPoint());
}

void NxTextAndLinksView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto index = characterIndexAt(event->position().toPoint()))
        clickedOnLink(*index);
}

//! The second press of a double click runs nothing, be it on the view that the first one made.
void NxTextAndLinksView::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void NxTextAndLinksView::keyPressEvent(QKeyEvent* event) {
    const bool runs = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    const bool alone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const auto focused = focusedLink();
    if (runs && alone && focused && !event->isAutoRepeat())
        runLink(*focused);
    else
        QWidget::keyPressEvent(event);
}

std::optional<std::size_t> NxTextAndLinksView::focusedLink() const {
    return hasFocus() && m_focusedLink < m_links.size() ? std::optional(m_focusedLink) : std::nullopt;
}

void NxTextAndLinksView::focusLink(std::size_t link) {
    giveFocusBack(link);
    Q_EMIT linkFocused(rectOfLink(link));
}

void NxTextAndLinksView::giveFocusBack(std::size_t link) {
    m_focusedLink = link;
    if (hasFocus())
        moveFocusMark(link);
    else
        setFocus(Qt::OtherFocusReason);
}

void NxTextAndLinksView::moveFocusMark(std::size_t link) {
    m_focusedLink = link;
    update();
    tellFocus();
}

void NxTextAndLinksView::tellFocus() {
    if (const auto focused = focusedLink())
        NxTextAndLinksAccessible::tellFocus(*this, *focused);
}

void NxTextAndLinksView::focusInEvent(QFocusEvent* event) {
    const bool forward = event->reason() == Qt::TabFocusReason;
    const bool backward = event->reason() == Qt::BacktabFocusReason;
    if (forward)
        m_focusedLink = 0;
    else if (backward && !m_links.empty())
        m_focusedLink = m_links.size() - 1;
    update();
    // Qt reports the view to screen readers after this; the link is reported last.
    m_focusTelling.start();
    if ((forward || backward) && focusedLink())
        Q_EMIT linkFocused(rectOfLink(m_focusedLink));
}

void NxTextAndLinksView::focusOutEvent(QFocusEvent*) {
    update();
}

bool NxTextAndLinksView::focusNextPrevChild(bool next) {
    const auto focused = focusedLink();
    if (!focused || (next ? *focused + 1 == m_links.size() : *focused == 0))
        return QWidget::focusNextPrevChild(next);
    focusLink(next ? *focused + 1 : *focused - 1);
    return true;
}

} // namespace fv2
