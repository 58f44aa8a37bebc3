// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/status/StatusMessageItemTextAndLink.h"
#include "shell/FV2View.h"

#include <QPointer>

namespace fv2 {

//! Filled by the text of a status message once it is set up. Main thread only.
class StatusMessageItemTextAndLinkContainer final : public FV2View {
    Q_OBJECT
public:
    using FV2View::FV2View;

    //! Makes the text view; once.
    void setUp(FV2AppStateModel& appModel, fv2AppCommand command);

    [[nodiscard]] StatusMessageItemTextAndLink* textView() const { return m_textView; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QPointer<StatusMessageItemTextAndLink> m_textView;
};

} // namespace fv2
