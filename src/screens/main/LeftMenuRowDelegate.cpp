// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuRowDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

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

bool LeftMenuRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QWidget* const cell = view->indexWidget(index);
    QToolTip::showText(event->globalPos(), cell == nullptr ? QString() : cell->toolTip(), view);
    return true;
}

QSize LeftMenuRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    return {option.rect.width(), m_rowHeight};
}

} // namespace fv2
