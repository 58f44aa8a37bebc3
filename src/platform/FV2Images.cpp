// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Images.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <QSvgRenderer>

#include <map>
#include <memory>
#include <utility>

namespace fv2 {

namespace {

constexpr std::array<int, 8> kPanelSizes{16, 22, 24, 32, 48, 64, 96, 128};

//! What a picture can be drawn for, and how such a file's name ends.
constexpr std::pair<int, const char*> kGrids[] = {{16, ""}, {22, "_22"}, {24, "_24"}};

//! One picture, drawn for one or more sizes. Draws when asked, so that large sizes take no memory until somebody wants
//! them.
class Drawing final : public QIconEngine {
public:
    using Grids = std::map<int, std::shared_ptr<QSvgRenderer>>; //!< by the size that each is drawn for

    Drawing(Grids grids, QString themeName)
        : m_grids(std::move(grids))
        , m_themeName(std::move(themeName)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        if (m_grids.size() == 1) {
            m_grids.begin()->second->render(painter, place);
            return;
        }
        const auto [grid, size] = sharpest(std::min(place.width(), place.height()));
        QRect drawn(0, 0, size, size);
        drawn.moveCenter(place.center());
        grid->render(painter, drawn);
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
    //! The grid whose multiple leaves the least room unused, and that multiple; a smaller place than any gets a smaller
    //! drawing.
    [[nodiscard]] std::pair<QSvgRenderer*, int> sharpest(int room) const {
        std::pair<QSvgRenderer*, int> best{m_grids.begin()->second.get(), room};
        int least = m_grids.begin()->first;
        for (const auto& [size, grid] : m_grids)
            if (const int whole = room / size * size; whole >= least) {
                best = {grid.get(), whole};
                least = whole;
            }
        return best;
    }

    Grids m_grids;
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

QIcon FV2Images::imageNamed(const QString& name) {
    const auto known = m_read.constFind(name);
    if (known != m_read.constEnd())
        return *known;
    Drawing::Grids grids;
    for (const auto& [size, suffix] : kGrids)
        if (const QString path = QStringLiteral(":/images/") + name + QLatin1String(suffix) + QStringLiteral(".svg");
            QFile::exists(path))
            grids[size] = std::make_shared<QSvgRenderer>(path);
    return *m_read.insert(name, grids.empty() ? QIcon() : QIcon(new Drawing(std::move(grids), themeName(name))));
}

} // namespace fv2
