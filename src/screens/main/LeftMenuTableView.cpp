// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuTableView.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace fv2 {

LeftMenuTableView::LeftMenuTableView(QWidget* parent)
    : QListWidget(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setResizeMode(QListView::Adjust); // rows may be laid out before the menu has its size
    connect(this, &QListWidget::itemSelectionChanged, this, &LeftMenuTableView::followSelection);
}

void LeftMenuTableView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int before = currentRow();
    QListWidget::mousePressEvent(event);
    if (row(itemAt(event->pos())) == before && before >= 0)
        Q_EMIT selectedRowPressed(before);
}

QItemSelectionModel::SelectionFlags LeftMenuTableView::selectionCommand(const QModelIndex& index,
                                                                        const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

//! Screen readers change the selection and leave the current row.
void LeftMenuTableView::followSelection() {
    const auto selected = selectedItems();
    if (selected.size() == 1 && selected.first() != currentItem())
        setCurrentItem(selected.first());
}

void LeftMenuTableView::keyPressEvent(QKeyEvent* event) {
    const bool enters =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (enters && currentRow() >= 0)
        Q_EMIT selectedRowPressed(currentRow());
    else
        QListWidget::keyPressEvent(event);
}

} // namespace fv2
