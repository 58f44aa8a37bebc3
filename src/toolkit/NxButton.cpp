// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxButton.h"

#include "toolkit/ControlSizes.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"

#include <QPainter>

#include <algorithm>

namespace fv2 {

namespace {

// Device-independent pixels.
constexpr int kNarrowest = 92;
constexpr int kRoomBesideText = 28;
constexpr double kButtonRadius = 5;
constexpr double kFocusRing = 2;

constexpr double kBorderPart = 0.45; //!< of the text's colour in the border's
constexpr double kTouchedPart = 0.1; //!< and in the area's below the mouse

} // namespace

NxButton::NxButton(QWidget* parent)
    : QPushButton(parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void NxButton::setTitle(const QString& identifier) {
    m_title = identifier;
    showText(translated(identifier));
}

void NxButton::setText(const QString& text) {
    m_title.clear();
    showText(text);
}

void NxButton::showText(const QString& text) {
    QPushButton::setText(QString(text).replace(u'&', QStringLiteral("&&")));
    // The base class's text for screen readers lacks every "&".
    setAccessibleName(text);
}

void NxButton::setProminent(bool prominent) {
    m_prominent = prominent;
    updateGeometry();
    update();
}

QFont NxButton::shownFont() const {
    QFont shown = font();
    if (m_prominent)
        shown.setBold(true);
    return shown;
}

QSize NxButton::sizeHint() const {
    const QFontMetrics letters(shownFont());
    return {std::max(kNarrowest, letters.horizontalAdvance(accessibleName()) + kRoomBesideText),
            controlHeight(letters)};
}

NxButton::Colours NxButton::colours() const {
    const QColor window = palette().color(QPalette::Window);
    Colours colours{palette().color(QPalette::Button), {}, palette().color(QPalette::ButtonText)};
    if (m_prominent && isEnabled()) {
        colours.fill = fillOf(palette());
        colours.text = readableOn(colours.fill, kContrastOfText);
    }
    if (isDown())
        colours.fill = mixed(colours.fill, Qt::black, 2 * kTouchedPart);
    else if (underMouse() && isEnabled())
        colours.fill = mixed(colours.fill, readableOn(colours.fill) == Qt::white ? Qt::black : Qt::white, kTouchedPart);
    if (!isEnabled())
        colours.fill = mixed(colours.fill, window, 0.5);
    colours.border = m_prominent && isEnabled() ? colours.fill : mixed(window, colours.text, kBorderPart);
    return colours;
}

void NxButton::paintEvent(QPaintEvent* /*event*/) {
    const Colours shown = colours();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(shown.border, 1));
    painter.setBrush(shown.fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kButtonRadius, kButtonRadius);
    if (hasFocus()) {
        // Inside a filled one, where it can be told from the area; an empty one gets it as its border.
        const double inset = m_prominent ? kFocusRing + 1 : kFocusRing / 2;
        const QColor mark = m_prominent ? shown.text : focusMarkOn(shown.fill, palette(), shown.text);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(mark, m_prominent ? 1.5 : kFocusRing));
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kButtonRadius - 1,
                                kButtonRadius - 1);
    }
    painter.setPen(shown.text);
    painter.setFont(shownFont());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, accessibleName());
}

} // namespace fv2
