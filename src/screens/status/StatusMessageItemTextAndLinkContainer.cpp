// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemTextAndLinkContainer.h"

#include "logging/FV2Logging.h"

#include <QVBoxLayout>

namespace fv2 {

void StatusMessageItemTextAndLinkContainer::setUp(FV2AppStateModel& model, fv2AppCommand command) {
    setObjectName(QStringLiteral("container"));
    m_textView = new StatusMessageItemTextAndLink(model, command, this);
    m_textView->setObjectName(QStringLiteral("subview"));
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_textView);
}

void StatusMessageItemTextAndLinkContainer::resizeEvent(QResizeEvent* event) {
    const auto tell = [this](const char* what) {
        log(FV2LoggingLevel::trace, {what, height(), m_textView == nullptr ? 0 : m_textView->height()});
    };
    tell("StatusMessageItemTextAndLinkContainer layout in!");
    FV2View::resizeEvent(event);
    tell("StatusMessageItemTextAndLinkContainer layout out!");
}

} // namespace fv2
