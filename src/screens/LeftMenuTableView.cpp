// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/LeftMenuTableView.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace fv2 {

LeftMenuTableView::LeftMenuTableView(QWidget* parent)
    : QListWidget(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setUniformItemSizes(true);
}

void LeftMenuTableView::mousePressEvent(QMouseEvent* event) {
    const int before = currentRow();
    QListWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && row(itemAt(event->pos())) == before && before >= 0)
        Q_EMIT selectedRowPressed(before);
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
