// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemSubviewController.h"

#include "model/FV2StatusLook.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"
#include "toolkit/SpokenStatus.h"
#include "toolkit/TitleFont.h"
#include "ui_StatusMessageItemSubview.h"

namespace fv2 {

namespace {

constexpr double kRowCorners = 8;

//! The design's, where it can be read.
QColor linkColourOn(const QColor& background, const QColor& text, const FV2AppConfigModel& config) {
    const QColor link = toQColor(config.designColour(NxDesignColor::Link));
    return contrastOf(link, background) >= kContrastOfText ? link : text;
}

} // namespace

StatusMessageItemSubviewController::StatusMessageItemSubviewController(FV2AppStateModel& model,
                                                                       FV2AppConfigModel& configModel,
                                                                       const FV2StatusMesssageListItem& message)
    : FV2ViewController(model, configModel, new StatusMessageItemSubview) {
    Ui::StatusMessageItemSubview outlets;
    outlets.setupUi(itemView());
    m_sign = outlets.sign;
    m_percent = outlets.percent;
    statusMessageTitle = outlets.statusMessageTitle;
    statusTextAndLinkContainer = outlets.statusTextAndLinkContainer;
    m_progressBar = outlets.progressBar;
    viewDidLoad(message);
    initsubview();
}

void StatusMessageItemSubviewController::viewDidLoad(const FV2StatusMesssageListItem& message) {
    const QString title = QString::fromStdString(message.Title);
    itemView()->statusType = message.statusType;
    itemView()->setCornerRadius(kRowCorners);
    const FV2StatusLook& look = lookOf(message.statusType);
    const QString spoken = translated(QString::fromUtf8(look.spoken));
    // For those who can't see the colour.
    itemView()->setAccessibleName(spokenWithStatus(title, spoken));
    m_sign->setImageName(QString::fromUtf8(look.menuIcon));
    m_sign->setAccessibleName(spoken);
    statusMessageTitle->setText(title);
    statusTextAndLinkContainer->setUp(appModel, message.command);
    textView()->setHtmlCode(QString::fromStdString(message.Text));
    m_progressBar->setVisible(message.percent.has_value());
    m_progressBar->setAccessibleName(title);
    showPercent(message.percent);
    if (message.sendsToAdministrator)
        addSupport();
    setTitleFont();
    connect(itemView(), &StatusMessageItemSubview::fontChanged, this,
            &StatusMessageItemSubviewController::setTitleFont);
    connect(itemView(), &StatusMessageItemSubview::laidOut, this, &StatusMessageItemSubviewController::setBackground);
}

void StatusMessageItemSubviewController::addSupport() {
    const FV2SupportContact::Line line = appConfigModel.productModel().support.markup();
    if (line.text.empty())
        return;
    m_support = new StatusMessageSupport(line, itemView());
    itemView()->layout()->addWidget(m_support);
}

std::vector<NxTextAndLinksView*> StatusMessageItemSubviewController::textViews() const {
    std::vector<NxTextAndLinksView*> all{textView()};
    if (m_support != nullptr)
        all.push_back(m_support);
    return all;
}

void StatusMessageItemSubviewController::showProgress(const FV2StatusMesssageListItem& message) {
    textView()->setHtmlCode(QString::fromStdString(message.Text));
    showPercent(message.percent);
}

void StatusMessageItemSubviewController::showPercent(std::optional<int> percent) {
    m_percent->setVisible(percent.has_value());
    m_percent->setText(translated(QStringLiteral("IDUS_ORM_SM_PERCENT_FMT")).arg(percent.value_or(0)));
    m_progressBar->setValue(percent.value_or(0));
}

void StatusMessageItemSubviewController::setTitleFont() {
    const QFont bold = titleFont(itemView()->font());
    statusMessageTitle->setFont(bold);
    m_percent->setFont(bold);
}

void StatusMessageItemSubviewController::setBackground() {
    itemView()->setBackgroundColor(toQColor(appConfigModel.colours().*lookOf(itemView()->statusType).messageColour));
}

void StatusMessageItemSubviewController::refreshColours(const FV2AppConfigModel& config) {
    setBackground();
    const QColor background = toQColor(config.colours().*lookOf(itemView()->statusType).messageColour);
    const QColor text = readableOn(background, kContrastOfText);
    statusMessageTitle->setTextColor(text);
    const QColor link = linkColourOn(background, text, config);
    m_percent->setTextColor(text);
    m_sign->setTintColor(toQColor(config.designColour(lookOf(itemView()->statusType).signColour)));
    m_progressBar->setColours(toQColor(config.designColour(NxDesignColor::Blue)), text);
    for (NxTextAndLinksView* const each : textViews()) {
        each->setTextColor(text);
        each->setLinkColor(link);
        each->setFocusMarkColor(focusMarkOn(background, itemView()->palette(), text));
    }
}

} // namespace fv2
