// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxView.h"

#include "toolkit/NxQtColor.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace fv2 {

namespace {

//! The area with its edges between two of the screen's own pixels.
QRectF aligned(const QRectF& area, const QTransform& toScreen) {
    const QRectF place = toScreen.mapRect(area);
    const auto rounded = [](const QPointF& point) { return QPointF(std::round(point.x()), std::round(point.y())); };
    return toScreen.inverted().mapRect(QRectF(rounded(place.topLeft()), rounded(place.bottomRight())));
}

QPainterPath rounded(const QRectF& area, double radius) {
    QPainterPath path;
    if (radius > 0)
        path.addRoundedRect(area, radius, radius);
    else
        path.addRect(area);
    return path;
}

} // namespace

NxView::Colours NxView::coloursOfPalette() const {
    if (!isDark(palette()))
        return m_light;
    const auto either = [](const QColor& dark, const QColor& light) { return dark.isValid() ? dark : light; };
    return {either(m_dark.background, m_light.background), either(m_dark.gradientStart, m_light.gradientStart),
            either(m_dark.gradientEnd, m_light.gradientEnd), either(m_dark.border, m_light.border)};
}

void NxView::paintEvent(QPaintEvent*) {
    const Colours colours = coloursOfPalette();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = aligned(rect(), painter.deviceTransform());
    const double ratio = painter.deviceTransform().m11();
    const double radius = std::min(m_cornerRadius, std::min(area.width(), area.height()) / 2);

    const QPainterPath outline = rounded(area, radius);
    if (colours.gradientStart.isValid() && colours.gradientEnd.isValid()) {
        QLinearGradient gradient(area.topLeft(), area.bottomLeft());
        gradient.setColorAt(0, colours.gradientStart);
        gradient.setColorAt(1, colours.gradientEnd);
        painter.fillPath(outline, gradient);
    } else if (colours.background.isValid()) {
        painter.fillPath(outline, colours.background);
    }

    if (!colours.border.isValid() || m_borderWidth <= 0)
        return;
    const double width = std::max(1.0, std::round(m_borderWidth * ratio)) / ratio;
    const auto inset = [&](Qt::Edge edge) { return m_borderEdges.testFlag(edge) ? width : 0.0; };
    const QRectF inside =
        area.adjusted(inset(Qt::LeftEdge), inset(Qt::TopEdge), -inset(Qt::RightEdge), -inset(Qt::BottomEdge));
    const double insideRadius = m_borderEdges == kAllEdges ? std::max(0.0, radius - width) : radius;
    painter.fillPath(outline.subtracted(rounded(inside, insideRadius)), colours.border);
}

} // namespace fv2
