// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxButton.h"

#include "toolkit/NxTranslated.h"

#include <QPainter>

namespace fv2 {

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

void NxButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

} // namespace fv2
