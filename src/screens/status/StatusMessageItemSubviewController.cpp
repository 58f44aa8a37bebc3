// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemSubviewController.h"

#include "model/FV2StatusLook.h"
#include "screens/status/ReadableColour.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/SpokenStatus.h"
#include "ui_StatusMessageItemSubview.h"

namespace fv2 {

namespace {

//! The design's, where it can be read.
QColor linkColourOn(const QColor& background, const QColor& text, const FV2AppConfigModel& config) {
    const QColor link = toQColor(config.linkColour());
    return contrastOf(link, background) >= kContrastOfText ? link : text;
}

} // namespace

StatusMessageItemSubviewController::StatusMessageItemSubviewController(FV2AppStateModel& model,
                                                                       FV2AppConfigModel& configModel,
                                                                       const FV2StatusMesssageListItem& message)
    : FV2ViewController(model, configModel, new StatusMessageItemSubview) {
    Ui::StatusMessageItemSubview outlets;
    outlets.setupUi(itemView());
    statusMessageTitle = outlets.statusMessageTitle;
    statusTextAndLinkContainer = outlets.statusTextAndLinkContainer;
    m_progressBar = outlets.progressBar;
    viewDidLoad(message);
    initsubview();
}

void StatusMessageItemSubviewController::viewDidLoad(const FV2StatusMesssageListItem& message) {
    const QString title = QString::fromStdString(message.Title);
    itemView()->statusType = message.statusType;
    // For those who can't see the colour.
    itemView()->setAccessibleName(
        spokenWithStatus(title, translated(QString::fromUtf8(lookOf(message.statusType).spoken))));
    statusMessageTitle->setText(title);
    statusTextAndLinkContainer->setUp(appModel, message.command);
    textView()->setHtmlCode(QString::fromStdString(message.Text));
    m_progressBar->setVisible(message.percent.has_value());
    m_progressBar->setAccessibleName(title);
    m_progressBar->setValue(message.percent.value_or(0));
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
    m_progressBar->setValue(message.percent.value_or(0));
}

//! The text has the desktop's font, the title a bold one that is a point larger.
void StatusMessageItemSubviewController::setTitleFont() {
    QFont bold = itemView()->font();
    bold.setBold(true);
    if (bold.pointSizeF() > 0)
        bold.setPointSizeF(bold.pointSizeF() + 1);
    else
        bold.setPixelSize(bold.pixelSize() + 1);
    statusMessageTitle->setFont(bold);
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
    m_progressBar->setColours(link, text);
    for (NxTextAndLinksView* const each : textViews()) {
        each->setTextColor(text);
        each->setLinkColor(link);
        each->setFocusMarkColor(focusMarkOn(background, itemView()->palette(), text));
    }
}

} // namespace fv2
