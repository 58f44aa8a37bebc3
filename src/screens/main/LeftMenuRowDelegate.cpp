// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuRowDelegate.h"

#include "toolkit/NxLeftMenuCellView.h"

#include <QAbstractItemView>
#include <QPainter>

#include <algorithm>

namespace fv2 {

namespace {

constexpr double kRowInset = 8; //!< between the menu's edges and a row's area
constexpr double kRowRadius = 6;

} // namespace

LeftMenuRowDelegate::LeftMenuRowDelegate(int rowHeight, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_rowHeight(rowHeight) {
}

void LeftMenuRowDelegate::setColours(const QColor& highlight, const QColor& focus) {
    m_highlight = highlight;
    m_focus = focus;
}

void LeftMenuRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& /*index*/) const {
    const QRectF area = QRectF(option.rect).adjusted(kRowInset, 0, -kRowInset, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->setBrush(m_highlight);
        painter->drawRoundedRect(area, kRowRadius, kRowRadius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        painter->setPen(QPen(m_focus, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(area.adjusted(1, 1, -1, -1), kRowRadius - 1, kRowRadius - 1);
    }
    painter->restore();
}

QSize LeftMenuRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const auto* const cell =
        view == nullptr ? nullptr : qobject_cast<const NxLeftMenuCellView*>(view->indexWidget(index));
    return {option.rect.width(), std::max(m_rowHeight, cell == nullptr ? 0 : cell->wantedHeight())};
}

} // namespace fv2
