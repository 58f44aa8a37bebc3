// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextField.h"

#include "toolkit/NxHtmlText.h"
#include "toolkit/NxTextLines.h"
#include "toolkit/NxTranslated.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <cmath>

namespace fv2 {

namespace {

constexpr double kUnlimited = 1 << 20;
//! Lines of a styled text are at least so many points higher than its letters.
constexpr double kStyledLineGap = 3;

QSize roundedUp(const QSizeF& size) {
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

bool isHtml(const QString& text) {
    return text.contains(u'<') && text.contains(u'>');
}

} // namespace

NxTextField::NxTextField(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void NxTextField::setStringValue(const QString& identifier) {
    m_stringValue = identifier;
    const QString text = translated(identifier);
    m_styles.clear();
    if (!isHtml(text)) {
        showText(text);
        return;
    }
    NxAttributedString styled = attributedStringFromHtml(text, font(), textColour());
    styled.change([](NxAttributedString::Attributes& attributes) { attributes.textColor = QColor(); });
    m_styles = styled.formats();
    showText(styled.string());
}

void NxTextField::setText(const QString& text) {
    m_stringValue.clear();
    m_styles.clear();
    showText(text);
}

void NxTextField::showText(const QString& text) {
    m_sizes.clear();
    QLabel::setText(text);
    updateToolTip();
    Q_EMIT textChanged();
}

void NxTextField::setTextColor(const QColor& colour) {
    QPalette changed; // sets only this colour; all others still follow the desktop
    changed.setColor(foregroundRole(), colour);
    setPalette(changed);
}

QColor NxTextField::textColour() const {
    return palette().color(foregroundRole());
}

void NxTextField::setElided(bool elided) {
    m_elided = elided;
    updateToolTip();
    updateGeometry();
    update();
}

QString NxTextField::oneLine() const {
    return text().replace(u'\n', u' ');
}

QString NxTextField::shownText() const {
    if (!m_elided)
        return text();
    const int room = contentsRect().width() - 2 * margin();
    if (m_styles.isEmpty())
        return fontMetrics().elidedText(oneLine(), Qt::ElideRight, room);
    // Each style has a width of its own.
    const QString mark(QChar(0x2026));
    QTextLayout layout(oneLine(), font(), this);
    if (layOut(layout, kUnlimited).width() <= room)
        return oneLine();
    const QTextLine line = layout.lineAt(0);
    const double cut = line.naturalTextRect().left() + room - fontMetrics().horizontalAdvance(mark);
    return oneLine().left(line.xToCursor(cut, QTextLine::CursorOnCharacter)) + mark;
}

void NxTextField::updateToolTip() {
    if (!m_elided || shownText() == oneLine())
        setToolTip({});
    else // A tooltip takes what looks like markup for markup.
        setToolTip(QStringLiteral("<p>") + text().toHtmlEscaped() + QStringLiteral("</p>"));
}

QSizeF NxTextField::layOut(QTextLayout& layout, double width) const {
    QTextOption option(QStyle::visualAlignment(layoutDirection(), alignment()) & Qt::AlignHorizontal_Mask);
    option.setTextDirection(layoutDirection());
    option.setWrapMode(wraps() ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::ManualWrap);
    layout.setTextOption(option);
    layout.setFormats(m_styles);
    const double usual = kLineHeight * QFontMetrics(layout.font()).height();
    const double styled = (QFontInfo(layout.font()).pointSizeF() + kStyledLineGap) * logicalDpiY() / 72;
    return layOutLines(layout, width, overhangOf(layout), m_styles.isEmpty() ? usual : std::max(usual, styled));
}

QSize NxTextField::sizeOfText(int width, const QFont& font, int* lines) const {
    QTextLayout layout(text().replace(u'\n', QChar::LineSeparator), font, this);
    const QSizeF size = layOut(layout, width);
    if (lines != nullptr)
        *lines = layout.lineCount();
    return roundedUp(size);
}

//! In the field's own font.
QSize NxTextField::ownSize(int width) const {
    if (m_sizes.size() > kRememberedWidths)
        m_sizes.clear();
    const auto [known, isNew] = m_sizes.try_emplace({width, wraps()});
    if (isNew)
        known->second = sizeOfText(width, font());
    return known->second;
}

QSize NxTextField::withMargins(const QSize& size) const {
    const QMargins outer = contentsMargins();
    return size.grownBy(outer + margin());
}

QSize NxTextField::sizeHint() const {
    const int widest = wraps() ? fontMetrics().averageCharWidth() * kComfortableLetters : static_cast<int>(kUnlimited);
    return withMargins(ownSize(widest));
}

QSize NxTextField::minimumSizeHint() const {
    if (!wraps() && !m_elided)
        return sizeHint();
    const int fewLetters = fontMetrics().averageCharWidth() * kFewestLetters;
    const QSize whole = ownSize(static_cast<int>(kUnlimited));
    const int height = withMargins({0, fontMetrics().height()}).height();
    // Layouts ask for heightForWidth() too late to keep the window high enough.
    return {withMargins({std::min(whole.width(), fewLetters), 0}).width(),
            m_givenWidth > 0 ? std::max(height, heightForWidth(m_givenWidth)) : height};
}

int NxTextField::heightForWidth(int width) const {
    if (!wraps())
        return -1;
    const int inside = width - withMargins({0, 0}).width();
    return withMargins(ownSize(std::max(inside, 1))).height();
}

void NxTextField::paintEvent(QPaintEvent*) {
    const QRect inside = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    QTextLayout layout(shownText().replace(u'\n', QChar::LineSeparator), font(), this);
    const QSizeF size = layOut(layout, inside.width());
    double top = inside.top();
    if (alignment().testFlag(Qt::AlignBottom))
        top += inside.height() - size.height();
    else if (!alignment().testFlag(Qt::AlignTop))
        top += (inside.height() - size.height()) / 2;
    QPainter painter(this);
    painter.setPen(textColour());
    layout.draw(&painter, {static_cast<double>(inside.left()), std::floor(top)});
}

void NxTextField::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
    if (m_givenWidth == width())
        return;
    m_givenWidth = width();
    if (wraps())
        updateGeometry();
}

void NxTextField::changeEvent(QEvent* event) {
    m_sizes.clear();
    QLabel::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    if (m_styles.isEmpty())
        updateToolTip();
    else
        setStringValue(QString(m_stringValue));
}

} // namespace fv2
