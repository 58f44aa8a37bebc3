// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/FV2WindowTitlebar.h"

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

FV2WindowTitlebarView::FV2WindowTitlebarView()
    : m_imageView(new NxImageView(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    row->addWidget(m_imageView);
    row->addStretch();
}

void FV2WindowTitlebarView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && window()->windowHandle() != nullptr)
        window()->windowHandle()->startSystemMove();
}

FV2WindowTitlebarViewController::FV2WindowTitlebarViewController(const std::weak_ptr<FV2AppStateModel>& model)
    : FV2ViewController(model, new FV2WindowTitlebarView) {
    static_cast<FV2WindowTitlebarView*>(view())->imageView()->setImageName(QStringLiteral("orm_product_logo"));
    initsubview();
}

void FV2WindowTitlebarViewController::refreshColours(const FV2AppConfigModel& config) {
    static_cast<FV2View*>(view())->setBackgroundColor(toQColor(config.colours().colourWindowTitlebar));
}

FV2WindowTitlebarAccessoryViewController::FV2WindowTitlebarAccessoryViewController(
    std::weak_ptr<FV2AppStateModel> appModel)
    : m_appModel(std::move(appModel)) {
}

void FV2WindowTitlebarAccessoryViewController::attachTo(FV2WindowController& controller) {
    m_subviewController = std::make_unique<FV2WindowTitlebarViewController>(m_appModel);
    QWidget* const strip = m_subviewController->view();
    strip->setFixedHeight(std::max(kLeastHeight, kContainerHeight - controller.titlebarHeight()));
    controller.window().addTitlebarAccessory(strip);
}

} // namespace fv2
