// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemSubviewController.h"

#include "resources/NxDesign.h"
#include "screens/status/ReadableColour.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "ui_StatusMessageItemSubview.h"

#include <array>

namespace fv2 {

namespace {

struct MessageLook {
    NxRgba FV2AppConfigModel::Colours::*background;
    const char* spoken;
};

//! In the order of the states.
constexpr std::array<MessageLook, 3> kMessageLooks{{
    {&FV2AppConfigModel::Colours::colourStatusMessageBackgroundGreen, "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_OK"},
    {&FV2AppConfigModel::Colours::colourStatusMessageBackgroundYellow, "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_WARNING"},
    {&FV2AppConfigModel::Colours::colourStatusMessageBackgroundRed, "IDUS_MGUI_LEFT_MENU_COUNTER_STATE_ERROR"},
}};

const MessageLook& lookOf(fv2StatusStateType status) {
    return kMessageLooks.at(static_cast<std::size_t>(status));
}

//! The design's, where it can be read.
QColor linkColourOn(const QColor& background, const QColor& text, bool dark) {
    const QColor link = toQColor(NxDesign::sharedDesign().getDesignColor(NxDesignColor::Link, dark ? 0 : 1));
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
    viewDidLoad(message);
    initsubview();
}

void StatusMessageItemSubviewController::viewDidLoad(const FV2StatusMesssageListItem& message) {
    const QString title = QString::fromStdString(message.Title);
    itemView()->statusType = message.statusType;
    // The colour alone tells nothing to those who don't see it.
    itemView()->setAccessibleName(title + QStringLiteral(", ") +
                                  translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE")) + u' ' +
                                  translated(QString::fromUtf8(lookOf(message.statusType).spoken)));
    statusMessageTitle->setText(title);
    statusTextAndLinkContainer->setUp(appModel, message.command);
    textView()->setHtmlCode(QString::fromStdString(message.Text));
    setTitleFont();
    connect(itemView(), &StatusMessageItemSubview::fontChanged, this,
            &StatusMessageItemSubviewController::setTitleFont);
    connect(itemView(), &StatusMessageItemSubview::laidOut, this, &StatusMessageItemSubviewController::setBackground);
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
    itemView()->setBackgroundColor(toQColor(appConfigModel.colours().*lookOf(itemView()->statusType).background));
}

void StatusMessageItemSubviewController::refreshColours(const FV2AppConfigModel& config) {
    setBackground();
    const QColor background = toQColor(config.colours().*lookOf(itemView()->statusType).background);
    const QColor text = readableOn(background, kContrastOfText);
    statusMessageTitle->setTextColor(text);
    textView()->setTextColor(text);
    textView()->setLinkColor(linkColourOn(background, text, config.isDarkMode()));
    textView()->setFocusMarkColor(focusMarkOn(background, itemView()->palette(), text));
}

} // namespace fv2
