// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxScrollView.h"

#include "toolkit/ReadableColour.h"

#include <QEvent>

namespace fv2 {

NxScrollView::NxScrollView(QWidget* parent)
    : QScrollArea(parent)
    , m_focusMark(new NxView(this)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    m_focusMark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_focusMark->setBorderWidth(2);
    m_focusMark->hide();
    colourFocusMark();
}

void NxScrollView::updateFocusPolicy(int contentHeight) {
    setFocusPolicy(contentHeight > viewport()->height() ? Qt::TabFocus : Qt::NoFocus);
}

bool NxScrollView::viewportEvent(QEvent* event) {
    const bool done = QScrollArea::viewportEvent(event);
    if (event->type() == QEvent::LayoutRequest && widgetResizable() && widget() != nullptr)
        updateFocusPolicy(widget()->minimumSizeHint().height());
    return done;
}

void NxScrollView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    m_focusMark->setGeometry(rect());
    if (widgetResizable() && widget() != nullptr)
        updateFocusPolicy(widget()->minimumSizeHint().height());
}

void NxScrollView::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourFocusMark();
}

void NxScrollView::colourFocusMark() {
    m_focusMark->setBorderColor(
        focusMarkOn(palette().color(QPalette::Window), palette(), palette().color(QPalette::WindowText)));
}

void NxScrollView::focusInEvent(QFocusEvent* event) {
    QScrollArea::focusInEvent(event);
    m_focusMark->raise();
    m_focusMark->show();
}

void NxScrollView::focusOutEvent(QFocusEvent* event) {
    QScrollArea::focusOutEvent(event);
    m_focusMark->hide();
}

} // namespace fv2
