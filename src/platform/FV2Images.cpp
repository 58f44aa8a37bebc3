// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Images.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <QSvgRenderer>

#include <memory>

namespace fv2 {

namespace {

constexpr std::array<int, 8> kPanelSizes{16, 22, 24, 32, 48, 64, 96, 128};

//! Draws when asked, so that large sizes take no memory until somebody wants them.
class Drawing final : public QIconEngine {
public:
    Drawing(const QString& path, QString themeName)
        : m_image(std::make_shared<QSvgRenderer>(path))
        , m_themeName(std::move(themeName)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        m_image->render(painter, place);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QList<QSize> sizes;
        for (const int size : kPanelSizes)
            sizes.emplace_back(size, size);
        return sizes;
    }
    QString iconName() override { return m_themeName; }
    QIconEngine* clone() const override { return new Drawing(*this); }

private:
    std::shared_ptr<QSvgRenderer> m_image;
    QString m_themeName;
};

//! What the image is called in the icon theme; empty where it isn't installed, as a tray's host may draw nothing for a
//! name that it does not find.
QString themeName(QString file) {
    const QString name = file.replace(QStringLiteral("orm_menu_icon"), QStringLiteral("org.fv2agent.Agent-status"))
                             .replace(QLatin1Char('_'), QLatin1Char('-'));
    const QString installed = QStringLiteral("icons/hicolor/scalable/status/") + name + QStringLiteral(".svg");
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, installed).isEmpty() ? QString() : name;
}

} // namespace

QIcon FV2Images::imageNamed(const QString& name, bool dark) {
    const QString file = dark ? name + QStringLiteral("_dark") : name;
    const auto known = m_read.constFind(file);
    if (known != m_read.constEnd())
        return *known;
    const QString path = QStringLiteral(":/images/") + file + QStringLiteral(".svg");
    return *m_read.insert(file, QFile::exists(path) ? QIcon(new Drawing(path, themeName(file))) : QIcon());
}

} // namespace fv2
