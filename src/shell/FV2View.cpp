// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2View.h"

#include <QEvent>
#include <QStackedLayout>

namespace fv2 {

void FV2View::pinToSuperview() {
    QWidget* const superview = parentWidget();
    auto* pages = qobject_cast<QStackedLayout*>(superview->layout());
    if (pages == nullptr)
        pages = new QStackedLayout(superview);
    if (pages->indexOf(this) < 0)
        pages->addWidget(this);
    pages->setCurrentWidget(this);
}

void FV2View::changeEvent(QEvent* event) {
    NxView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        viewDidChangeEffectiveAppearance();
}

void FV2View::viewDidChangeEffectiveAppearance() {
    if (appConfigModel == nullptr)
        return;
    appConfigModel->refreshAppearance();
    Q_EMIT effectiveAppearanceChanged();
}

} // namespace fv2
