// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/FV2WindowTitlebar.h"

#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"
#include "toolkit/ReadableColour.h"
#include "toolkit/TitleFont.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QWindow>

namespace fv2 {

namespace {

//! The strip and the desktop's own title bar together; device-independent pixels.
constexpr int kContainerHeight = 64;
constexpr int kLeastHeight = 56;
constexpr int kStripMargin = 20;
constexpr int kBesideLogo = 14;
constexpr QSize kLogoSize{30, 34};

} // namespace

FV2WindowTitlebarView::FV2WindowTitlebarView(const QString& heading)
    : m_heading(new NxTextField(this)) {
    auto* const logo = new NxImageView(this);
    logo->setImageName(QStringLiteral("orm_product_logo"));
    logo->setFixedSize(kLogoSize);
    m_heading->setFont(titleFont(font(), 2));
    m_heading->setStringValue(heading);
    m_heading->setWordWrap(true);
    m_heading->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kStripMargin, 0, kStripMargin, 0);
    row->setSpacing(kBesideLogo);
    row->addWidget(logo);
    row->addWidget(m_heading, 1);
}

void FV2WindowTitlebarView::setColours(const QColor& background, const QColor& text) {
    setBackgroundColor(background);
    m_heading->setTextColor(text);
}

void FV2WindowTitlebarView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && window()->windowHandle() != nullptr)
        window()->windowHandle()->startSystemMove();
}

FV2WindowTitlebarViewController::FV2WindowTitlebarViewController(FV2AppStateModel& model,
                                                                 FV2AppConfigModel& configModel, const QString& heading)
    : FV2ViewController(model, configModel, new FV2WindowTitlebarView(heading)) {
    initsubview();
}

void FV2WindowTitlebarViewController::refreshColours(const FV2AppConfigModel& config) {
    const QColor background = toQColor(config.colours().colourWindowTitlebar);
    static_cast<FV2WindowTitlebarView*>(view())->setColours(background, readableOn(background, kContrastOfText));
}

void FV2WindowTitlebarAccessoryViewController::attachTo(FV2WindowController& controller, const QString& heading) {
    m_subviewController = std::make_unique<FV2WindowTitlebarViewController>(m_appModel, m_appConfigModel, heading);
    QWidget* const strip = m_subviewController->view();
    strip->setFixedHeight(std::max(kLeastHeight, kContainerHeight - controller.titlebarHeight()));
    controller.window().addTitlebarAccessory(strip);
}

} // namespace fv2
