// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessagesTableView.h"

#include <QCoreApplication>
#include <QEvent>

#include <cmath>

namespace fv2 {

namespace {

constexpr int kScrollMargin = 12;

} // namespace

StatusMessagesTableView::StatusMessagesTableView(QWidget* parent)
    : NxScrollView(parent)
    , m_rows(new QWidget) {
    setWidget(m_rows);
    // The page's own background shows between the rows.
    m_rows->setAutoFillBackground(false);
}

void StatusMessagesTableView::setDataSource(StatusMessagesTableSource& source) {
    m_source = &source;
    reloadData();
}

void StatusMessagesTableView::setDelegate(StatusMessagesTableSource& delegate) {
    m_delegate = &delegate;
    reloadData();
}

void StatusMessagesTableView::reloadData() {
    m_rows->setUpdatesEnabled(false);
    for (QWidget* const row : m_rowViews) {
        row->removeEventFilter(this);
        row->hide();
        row->deleteLater();
    }
    m_rowViews.clear();
    const int count = m_source == nullptr ? 0 : m_source->numberOfRows(*this);
    for (int row = 0; row < count; ++row) {
        auto* const rowView = new QWidget(m_rows);
        m_rowViews.push_back(rowView);
        if (m_source->viewForRow(*this, row) != nullptr && m_delegate != nullptr)
            m_delegate->didAddRowView(*this, *rowView, row);
        rowView->installEventFilter(this);
    }
    layOutRows();
    for (QWidget* const row : m_rowViews)
        row->show();
    m_rows->setUpdatesEnabled(true);
}

void StatusMessagesTableView::layOutRows() {
    const int width = viewport()->width() - 2 * kMargin;
    int bottom = kMargin;
    for (int row = 0; row < static_cast<int>(m_rowViews.size()); ++row) {
        int height = 0;
        if (QWidget* const view = m_source->viewForRow(*this, row); view != nullptr && m_delegate != nullptr) {
            view->resize(width, view->heightForWidth(width));
            height = static_cast<int>(std::ceil(m_delegate->heightOfRow(*this, row)));
        }
        m_rowViews[static_cast<std::size_t>(row)]->setGeometry(kMargin, bottom, width, height);
        bottom += height + kRowGap;
    }
    bottom += kMargin - kRowGap;
    updateFocusPolicy(bottom);
    // Last, as it may show or hide the scroll bar, which changes the width.
    m_rows->resize(viewport()->width(), bottom);
}

void StatusMessagesTableView::scrollTo(const QWidget& view, const QRect& place) {
    const QRect inRows(view.mapTo(m_rows, place.topLeft()), place.size());
    ensureVisible(inRows.center().x(), inRows.center().y(), 0, inRows.height() / 2 + kScrollMargin);
}

bool StatusMessagesTableView::event(QEvent* event) {
    const bool done = NxScrollView::event(event);
    if (event->type() == QEvent::LayoutRequest)
        layOutRows();
    return done;
}

bool StatusMessagesTableView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && watched != m_rows)
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest)); // one for all rows
    return NxScrollView::eventFilter(watched, event);
}

void StatusMessagesTableView::resizeEvent(QResizeEvent* event) {
    NxScrollView::resizeEvent(event);
    layOutRows();
}

} // namespace fv2
