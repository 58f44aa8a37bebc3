// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxViewController.h"

namespace fv2 {

NxViewController::~NxViewController() {
    delete m_view.data();
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
