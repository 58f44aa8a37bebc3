// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxImageView.h"

#include <QAccessibleWidget>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <map>
#include <memory>

namespace fv2 {

namespace {

//! The picture of a name, read when first asked for; null when there is none.
QSvgRenderer* pictureNamed(const QString& name) {
    static std::map<QString, std::unique_ptr<QSvgRenderer>> pictures;
    const auto known = pictures.find(name);
    if (known != pictures.end())
        return known->second.get();
    const QString path = QStringLiteral(":/images/") + name + QStringLiteral(".svg");
    std::unique_ptr<QSvgRenderer> picture;
    if (QFile::exists(path))
        picture = std::make_unique<QSvgRenderer>(path);
    if (picture != nullptr && !picture->isValid())
        picture.reset();
    return pictures.emplace(name, std::move(picture)).first->second.get();
}

//! Draws the picture; in a place wider than its shape, both ends as they are and its middle between them.
void draw(QPainter& painter, QSvgRenderer& picture, const QRect& place) {
    const QSize whole = picture.defaultSize().scaled(QSize(place.width(), place.height()), Qt::KeepAspectRatio);
    const int more = place.width() - whole.width();
    if (more <= 1) {
        picture.render(&painter, place);
        return;
    }
    const int end = whole.width() / 2;
    const auto drawPart = [&](const QRect& part, const QRectF& all) {
        painter.setClipRect(part);
        picture.render(&painter, all);
    };
    drawPart({place.left(), place.top(), end, place.height()}, QRect(place.topLeft(), whole));
    drawPart({place.left() + end, place.top(), place.width() - 2 * end, place.height()},
             QRectF(place).adjusted(-20.0 * more, 0, 20.0 * more, 0));
    drawPart({place.left() + place.width() - end, place.top(), end, place.height()},
             QRect(place.topLeft() + QPoint(more, 0), whole));
}

QAccessibleInterface* makeAccessibleImage(const QString&, QObject* object) {
    auto* view = qobject_cast<NxImageView*>(object);
    return view == nullptr ? nullptr : new QAccessibleWidget(view, QAccessible::Graphic);
}

} // namespace

NxImageView::NxImageView(QWidget* parent)
    : QWidget(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessibleImage), true);
}

void NxImageView::setImageName(const QString& name) {
    m_imageName = name;
    m_tinted = {};
    updateGeometry();
    update();
}

void NxImageView::setTintColor(std::optional<QColor> colour) {
    m_tintColor = colour;
    m_tinted = {};
    update();
}

void NxImageView::setStretchesMiddle(bool stretches) {
    m_stretchesMiddle = stretches;
    m_tinted = {};
    update();
}

QSize NxImageView::sizeHint() const {
    const QSvgRenderer* picture = pictureNamed(m_imageName);
    return picture == nullptr ? QSize(0, 0) : picture->defaultSize();
}

QRect NxImageView::placeIn(const QSize& room, const QSize& picture) const {
    QSize size = picture.scaled(room, Qt::KeepAspectRatio);
    if (m_stretchesMiddle)
        size.setWidth(room.width());
    return {{(room.width() - size.width()) / 2, (room.height() - size.height()) / 2}, size};
}

void NxImageView::paintEvent(QPaintEvent*) {
    QSvgRenderer* picture = pictureNamed(m_imageName);
    if (picture == nullptr)
        return;
    // Laid out in the screen's own pixels, so that straight edges fall between two of them.
    const double ratio = devicePixelRatioF();
    const QRect place = placeIn((QSizeF(size()) * ratio).toSize(), picture->defaultSize());
    if (place.isEmpty())
        return;
    if (m_tintColor && m_tinted.size() != place.size()) {
        m_tinted = QPixmap(place.size());
        m_tinted.fill(Qt::transparent);
        QPainter painter(&m_tinted);
        draw(painter, *picture, m_tinted.rect());
        painter.setClipping(false);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(m_tinted.rect(), *m_tintColor);
    }
    QPainter painter(this);
    painter.scale(1 / ratio, 1 / ratio);
    if (m_tintColor)
        painter.drawPixmap(place.topLeft(), m_tinted);
    else
        draw(painter, *picture, place);
}

} // namespace fv2
