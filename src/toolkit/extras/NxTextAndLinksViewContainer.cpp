// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxTextAndLinksViewContainer.h"

#include <QVBoxLayout>

namespace fv2 {

NxTextAndLinksViewContainer::NxTextAndLinksViewContainer(QWidget* parent)
    : NxView(parent)
    , m_textView(new NxTextAndLinksView(this)) {
    m_textView->setObjectName(QStringLiteral("subview"));
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_textView);
}

} // namespace fv2
