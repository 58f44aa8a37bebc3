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
    const auto model = appModel.lock();
    if (model == nullptr || model->appConfigModel() == nullptr)
        return;
    model->appConfigModel()->refreshAppearance();
    Q_EMIT effectiveAppearanceChanged();
}

} // namespace fv2
