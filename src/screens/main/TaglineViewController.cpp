// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/TaglineViewController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2TagScanner.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/ReadableColour.h"
#include "ui_TaglineView.h"

namespace fv2 {

namespace {

//! What there is room for: the quickest way to the contact. The messages have all of it.
FV2SupportContact nextTo(const FV2SupportContact& contact) {
    if (!contact.phone.empty())
        return {.phone = contact.phone};
    return contact.url.empty() ? contact : FV2SupportContact{.url = contact.url};
}

} // namespace

TaglineViewController::TaglineViewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    logTrace("TaglineViewController.init");
    Ui::TaglineView outlets;
    outlets.setupUi(view());
    backgroundView = outlets.backgroundView;
    taglineImageView = outlets.taglineImageView;
    m_text = outlets.taglineText;
    m_text->setElided(true);
    const std::string support = nextTo(configModel.productModel().support).markup().text;
    if (support.empty())
        m_text->setStringValue(QStringLiteral("IDUS_MGUI_TAGLINE"));
    else
        m_text->setText(QString::fromStdString(scanTags(support).text));
    initsubview();
}

void TaglineViewController::refreshColours(const FV2AppConfigModel& config) {
    const QColor background = toQColor(config.colours().colourSectionBackground);
    const QColor tint = toQColor(config.taglineTint());
    backgroundView->setBackgroundColor(background);
    taglineImageView->setTintColor(contrastOf(tint, background) >= kContrastOfLargeText ? tint : quietOn(background));
    m_text->setTextColor(quietOn(background));
}

} // namespace fv2
