// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextField.h"

#include "toolkit/NxTranslated.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <cmath>

namespace fv2 {

namespace {

//! A wrapped text asks for lines of at most about so many letters.
constexpr int kComfortableLetters = 60;
constexpr int kFewestLetters = 6;
constexpr double kUnlimited = 1 << 20;

QSize roundedUp(const QSizeF& size) {
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

} // namespace

NxTextField::NxTextField(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void NxTextField::setStringValue(const QString& identifier) {
    m_stringValue = identifier;
    showText(translated(identifier));
}

void NxTextField::setText(const QString& text) {
    m_stringValue.clear();
    showText(text);
}

void NxTextField::showText(const QString& text) {
    QLabel::setText(text);
    updateToolTip();
    Q_EMIT textChanged();
}

void NxTextField::setTextColor(const QColor& colour) {
    QPalette changed; // names the one colour, so that all others go on following the desktop's
    changed.setColor(foregroundRole(), colour);
    setPalette(changed);
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
    return m_elided ? fontMetrics().elidedText(oneLine(), Qt::ElideRight, contentsRect().width() - 2 * margin())
                    : text();
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
    // Accents of capitals may stand out above what the font says of its lines.
    const QFontMetrics metrics(layout.font());
    QSizeF size(0, std::max(0, -metrics.tightBoundingRect(layout.text()).top() - metrics.ascent()));
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, size.height()});
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
}

QSize NxTextField::sizeOfText(int width, const QFont& font, int* lines) const {
    QTextLayout layout(text().replace(u'\n', QChar::LineSeparator), font, this);
    const QSizeF size = layOut(layout, width);
    if (lines != nullptr)
        *lines = layout.lineCount();
    return roundedUp(size);
}

QSize NxTextField::withMargins(const QSize& size) const {
    const QMargins outer = contentsMargins();
    return size.grownBy(outer + margin());
}

QSize NxTextField::sizeHint() const {
    const int widest = wraps() ? fontMetrics().averageCharWidth() * kComfortableLetters : static_cast<int>(kUnlimited);
    return withMargins(sizeOfText(widest, font()));
}

QSize NxTextField::minimumSizeHint() const {
    if (!wraps() && !m_elided)
        return sizeHint();
    const int fewLetters = fontMetrics().averageCharWidth() * kFewestLetters;
    const QSize whole = sizeOfText(static_cast<int>(kUnlimited), font());
    const int height = withMargins({0, fontMetrics().height()}).height();
    // Layouts ask for the height of a width too late to keep a window from being too low for it.
    return {withMargins({std::min(whole.width(), fewLetters), 0}).width(),
            m_givenWidth > 0 ? std::max(height, heightForWidth(m_givenWidth)) : height};
}

int NxTextField::heightForWidth(int width) const {
    if (!wraps())
        return -1;
    const int inside = width - withMargins({0, 0}).width();
    return withMargins(sizeOfText(std::max(inside, 1), font())).height();
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
    painter.setPen(palette().color(foregroundRole()));
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
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateToolTip();
}

} // namespace fv2
