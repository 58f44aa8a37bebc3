// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/status/StatusMessageItemSubview.h"
#include "screens/status/StatusMessageItemTextAndLinkContainer.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxTextField.h"

#include <QPointer>

namespace fv2 {

//! Fills one row with a status message, once. Main thread only; StatusMessagesTableDelegate owns it.
class StatusMessageItemSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    StatusMessageItemSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                       const FV2StatusMesssageListItem& message);

    [[nodiscard]] StatusMessageItemSubview* itemView() const { return qobject_cast<StatusMessageItemSubview*>(view()); }
    [[nodiscard]] StatusMessageItemTextAndLink* textView() const { return statusTextAndLinkContainer->textView(); }

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    void viewDidLoad(const FV2StatusMesssageListItem& message);
    void setTitleFont();
    void setBackground();

    QPointer<NxTextField> statusMessageTitle;
    QPointer<StatusMessageItemTextAndLinkContainer> statusTextAndLinkContainer;
};

} // namespace fv2
