// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/FV2WindowTitlebar.h"

#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QWindow>

namespace fv2 {

namespace {

//! The strip and the desktop's own title bar together; device-independent pixels.
constexpr int kContainerHeight = 64;
constexpr int kLeastHeight = 36;
constexpr int kMargin = 16;

} // namespace

FV2WindowTitlebarView::FV2WindowTitlebarView() {
    auto* const logo = new NxImageView(this);
    logo->setImageName(QStringLiteral("orm_product_logo"));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    row->addWidget(logo);
    row->addStretch();
}

void FV2WindowTitlebarView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && window()->windowHandle() != nullptr)
        window()->windowHandle()->startSystemMove();
}

FV2WindowTitlebarViewController::FV2WindowTitlebarViewController(FV2AppStateModel& model,
                                                                 FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2WindowTitlebarView) {
    initsubview();
}

void FV2WindowTitlebarViewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourWindowTitlebar));
}

void FV2WindowTitlebarAccessoryViewController::attachTo(FV2WindowController& controller) {
    m_subviewController = std::make_unique<FV2WindowTitlebarViewController>(m_appModel, m_appConfigModel);
    QWidget* const strip = m_subviewController->view();
    strip->setFixedHeight(std::max(kLeastHeight, kContainerHeight - controller.titlebarHeight()));
    controller.window().addTitlebarAccessory(strip);
}

} // namespace fv2
