// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Images.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace fv2 {

namespace {

constexpr std::array<int, 5> kPanelSizes{16, 22, 24, 32, 48};

QIcon drawn(const QString& path) {
    QIcon icon;
    if (!QFile::exists(path))
        return icon;
    QSvgRenderer image(path);
    for (const int size : kPanelSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        image.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

QIcon FV2Images::imageNamed(const QString& name, bool dark) {
    const QString file = dark ? name + QStringLiteral("_dark") : name;
    const auto known = m_drawn.constFind(file);
    if (known != m_drawn.constEnd())
        return *known;
    return *m_drawn.insert(file, drawn(QStringLiteral(":/images/") + file + QStringLiteral(".svg")));
}

} // namespace fv2
