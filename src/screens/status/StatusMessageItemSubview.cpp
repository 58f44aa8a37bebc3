// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemSubview.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowController.h"

#include <QEvent>

namespace fv2 {

void StatusMessageItemSubview::resizeEvent(QResizeEvent* event) {
    FV2View::resizeEvent(event);
    Q_EMIT laidOut();
    logTrace("StatusMessageSubview.layout for ", description(*this));
}

void StatusMessageItemSubview::changeEvent(QEvent* event) {
    FV2View::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        Q_EMIT fontChanged();
}

} // namespace fv2
