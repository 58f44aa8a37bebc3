// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxFramedField.h"

#include "toolkit/ControlSizes.h"
#include "toolkit/ReadableColour.h"

#include <QHBoxLayout>
#include <QPainter>

namespace fv2 {

namespace {

// Device-independent pixels.
constexpr int kBesideText = 6;
constexpr int kBesideButton = 4;
constexpr double kFieldRadius = 4;

constexpr double kFrameTextPart = 0.5; //!< of the text's colour in the frame's

} // namespace

NxFramedField::NxFramedField(QWidget* parent)
    : QLineEdit(parent) {
    setFrame(false);
    QPalette ownArea;
    ownArea.setColor(QPalette::Base, Qt::transparent);
    setPalette(ownArea);
    keepFree(kBesideText);
}

void NxFramedField::setButton(QWidget* button) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kBesideText, 0, kBesideButton, 0);
    row->addStretch();
    row->addWidget(button);
    keepFree(button->sizeHint().width() + 2 * kBesideButton);
}

void NxFramedField::keepFree(int end) {
    if (layoutDirection() == Qt::RightToLeft)
        setTextMargins(end, 0, kBesideText, 0);
    else
        setTextMargins(kBesideText, 0, end, 0);
}

QSize NxFramedField::sizeHint() const {
    return {QLineEdit::sizeHint().width(), controlHeight(fontMetrics())};
}

void NxFramedField::paintEvent(QPaintEvent* event) {
    paintFrame();
    QLineEdit::paintEvent(event);
}

//! Styles draw the frame of a dark field so faintly that it is hard to find.
void NxFramedField::paintFrame() {
    const QPalette outer = parentWidget() == nullptr ? palette() : parentWidget()->palette();
    const QColor area = outer.color(QPalette::Base);
    const QColor quiet = mixed(area, outer.color(QPalette::Active, QPalette::Text), kFrameTextPart);
    const double width = hasFocus() ? 2 : 1;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(area);
    painter.setPen(QPen(hasFocus() ? focusMarkOn(area, outer, outer.color(QPalette::Text)) : quiet, width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), kFieldRadius,
                            kFieldRadius);
}

} // namespace fv2
