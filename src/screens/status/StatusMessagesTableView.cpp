// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessagesTableView.h"

#include "screens/status/ReadableColour.h"

#include <QCoreApplication>
#include <QEvent>

#include <cmath>

namespace fv2 {

namespace {

constexpr int kScrollMargin = 12;

} // namespace

StatusMessagesTableView::StatusMessagesTableView(QWidget* parent)
    : QScrollArea(parent)
    , m_rows(new QWidget)
    , m_focusMark(new NxView(this)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(m_rows);
    // The page's own background shows below and between the rows.
    viewport()->setAutoFillBackground(false);
    m_rows->setAutoFillBackground(false);
    m_focusMark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_focusMark->setBorderWidth(2);
    m_focusMark->hide();
    colourFocusMark();
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
    const int width = viewport()->width();
    int bottom = 0;
    for (int row = 0; row < static_cast<int>(m_rowViews.size()); ++row) {
        int height = 0;
        if (QWidget* const view = m_source->viewForRow(*this, row); view != nullptr && m_delegate != nullptr) {
            view->resize(width, view->heightForWidth(width));
            height = static_cast<int>(std::ceil(m_delegate->heightOfRow(*this, row)));
        }
        m_rowViews[static_cast<std::size_t>(row)]->setGeometry(0, bottom, width, height);
        bottom += height + kRowGap;
    }
    setFocusPolicy(bottom > viewport()->height() ? Qt::TabFocus : Qt::NoFocus);
    // Last, as it may show or hide the scroll bar, which changes the width.
    m_rows->resize(width, bottom);
}

void StatusMessagesTableView::scrollTo(const QWidget& view, const QRect& place) {
    const QRect inRows(view.mapTo(m_rows, place.topLeft()), place.size());
    ensureVisible(inRows.center().x(), inRows.center().y(), 0, inRows.height() / 2 + kScrollMargin);
}

bool StatusMessagesTableView::event(QEvent* event) {
    const bool done = QScrollArea::event(event);
    if (event->type() == QEvent::LayoutRequest)
        layOutRows();
    return done;
}

bool StatusMessagesTableView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && watched != m_rows)
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest)); // one for all rows
    return QScrollArea::eventFilter(watched, event);
}

void StatusMessagesTableView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    m_focusMark->setGeometry(rect());
    layOutRows();
}

void StatusMessagesTableView::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourFocusMark();
}

void StatusMessagesTableView::colourFocusMark() {
    m_focusMark->setBorderColor(
        focusMarkOn(palette().color(QPalette::Window), palette(), palette().color(QPalette::WindowText)));
}

void StatusMessagesTableView::focusInEvent(QFocusEvent* event) {
    QScrollArea::focusInEvent(event);
    m_focusMark->raise();
    m_focusMark->show();
}

void StatusMessagesTableView::focusOutEvent(QFocusEvent* event) {
    QScrollArea::focusOutEvent(event);
    m_focusMark->hide();
}

} // namespace fv2
