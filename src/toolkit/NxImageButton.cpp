// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxImageButton.h"

#include "toolkit/NxImageView.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace fv2 {

namespace {

constexpr int kAroundImage = 3;
constexpr int kImageButtonSize = 24;
constexpr double kDisabledPart = 0.5; //!< of the background in the picture's colour

} // namespace

NxImageButton::NxImageButton(QWidget* parent)
    : QAbstractButton(parent)
    , m_image(new NxImageView(this)) {
    setCursor(Qt::ArrowCursor); // it may lie in a field, where the mouse is another one
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_image->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* const whole = new QHBoxLayout(this);
    whole->setContentsMargins(kAroundImage, kAroundImage, kAroundImage, kAroundImage);
    whole->addWidget(m_image);
    tint();
}

void NxImageButton::setTitle(const QString& identifier) {
    m_title = identifier;
    setAccessibleName(translated(identifier));
    setToolTip(accessibleName());
}

void NxImageButton::setImageName(const QString& name) {
    m_image->setImageName(name);
}

QString NxImageButton::imageName() const {
    return m_image->imageName();
}

QSize NxImageButton::sizeHint() const {
    return {kImageButtonSize, kImageButtonSize};
}

void NxImageButton::paintEvent(QPaintEvent* /*event*/) {
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(
        focusMarkOn(palette().color(QPalette::Base), palette(), palette().color(QPalette::Active, QPalette::Text)), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

void NxImageButton::changeEvent(QEvent* event) {
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        tint();
}

void NxImageButton::tint() {
    const QColor colour = quietOn(palette().color(QPalette::Window));
    m_image->setTintColor(isEnabled() ? colour : mixed(colour, palette().color(QPalette::Window), kDisabledPart));
}

} // namespace fv2
