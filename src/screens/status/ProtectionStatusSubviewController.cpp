// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/ProtectionStatusSubviewController.h"

#include "logging/FV2Logging.h"
#include "screens/status/ReadableColour.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "ui_ProtectionStatusSubview.h"

#include <array>

namespace fv2 {

namespace {

struct StatusLine {
    NxRgba FV2AppConfigModel::Colours::*background;
    const char* icon;
    const char* title;
};

//! In the order of the states.
constexpr std::array<StatusLine, 3> kStatusLines{{
    {&FV2AppConfigModel::Colours::colourStatusLineBackgroundGreen, "ok_white_32x32", "IDUS_MGUI_STATUS_TITLE_GREEN"},
    {&FV2AppConfigModel::Colours::colourStatusLineBackgroundYellow, "warning_white_32x32",
     "IDUS_MGUI_STATUS_TITLE_YELLOW"},
    {&FV2AppConfigModel::Colours::colourStatusLineBackgroundRed, "threat_white_32x32", "IDUS_MGUI_STATUS_TITLE_RED"},
}};

} // namespace

ProtectionStatusSubviewController::ProtectionStatusSubviewController(FV2AppStateModel& model,
                                                                     FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    logTrace("ProtectionStatusSubviewController.init");
    Ui::ProtectionStatusSubview outlets;
    outlets.setupUi(view());
    statusLineView = outlets.statusLineView;
    statusLineIcon = outlets.statusLineIcon;
    statusLineText = outlets.statusLineText;
    statusMessagesTableView = outlets.statusMessagesTableView;
    statusMessagesTableView->setAccessibleName(translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS")));
    tableViewDelegate = std::make_unique<StatusMessagesTableDelegate>(model, configModel, *statusMessagesTableView);
    initsubview();
}

void ProtectionStatusSubviewController::updateFromModel() {
    logTrace("ProtectionStatusSubviewController.updateFromModel in");
    const StatusLine& line = kStatusLines.at(static_cast<std::size_t>(appModel.state().overallState));
    statusLineIcon->setImageName(QString::fromUtf8(line.icon));
    statusLineText->setStringValue(QString::fromUtf8(line.title));
    view()->setAccessibleName(statusLineText->text());
    refreshColours(appConfigModel);
    tableViewDelegate->updateFromModel(*statusMessagesTableView);
    logTrace("ProtectionStatusSubviewController.updateFromModel out");
}

void ProtectionStatusSubviewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
    const StatusLine& line = kStatusLines.at(static_cast<std::size_t>(appModel.state().overallState));
    const QColor background = toQColor(config.colours().*line.background);
    const QColor foreground = readableOn(background);
    statusLineView->setBackgroundColor(background);
    statusLineText->setTextColor(foreground);
    statusLineIcon->setTintColor(foreground);
}

} // namespace fv2
