// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxViewController.h"

namespace fv2 {

NxViewController::~NxViewController() {
    if (m_view.isNull())
        return;
    // This may run in an event of the view: it is removed now and deleted after the event.
    m_view->hide();
    m_view->setParent(nullptr);
    m_view->deleteLater();
}

QWidget* NxViewController::view() {
    if (m_view.isNull()) {
        m_view = loadView().release();
        viewDidLoad();
    }
    return m_view;
}

std::unique_ptr<QWidget> NxViewController::loadView() {
    return std::make_unique<QWidget>();
}

} // namespace fv2
