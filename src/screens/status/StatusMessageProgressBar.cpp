// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageProgressBar.h"

#include <QPainter>
#include <QPainterPath>

namespace fv2 {

namespace {

constexpr int kBarHeight = 8;
constexpr int kBarLength = 60; //!< at least
constexpr int kRestAlpha = 38;
constexpr QMargins kRoom{3, 5, 3, 3};

} // namespace

StatusMessageProgressBar::StatusMessageProgressBar(QWidget* parent)
    : QProgressBar(parent) {
    setRange(0, 100);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StatusMessageProgressBar::setColours(const QColor& done, const QColor& behind) {
    m_done = done;
    m_rest = behind;
    m_rest.setAlpha(kRestAlpha);
    update();
}

QSize StatusMessageProgressBar::sizeHint() const {
    return QSize(kBarLength, kBarHeight).grownBy(kRoom);
}

void StatusMessageProgressBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole = rect().marginsRemoved(kRoom);
    QPainterPath outline;
    outline.addRoundedRect(whole, whole.height() / 2, whole.height() / 2);
    painter.setClipPath(outline);
    painter.fillRect(whole, m_rest);
    QRectF done = whole;
    done.setWidth(whole.width() * value() / 100);
    if (layoutDirection() == Qt::RightToLeft)
        done.moveRight(whole.right());
    painter.fillRect(done, m_done);
}

} // namespace fv2
