// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/status/NothingToDoView.h"
#include "screens/status/StatusMessagesTableDelegate.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"

#include <QPointer>

#include <memory>

namespace fv2 {

//! The first page: the overall state as a coloured line with icon and title, below it a row for each message, or that
//! there is nothing to do. Main thread only.
class ProtectionStatusSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    ProtectionStatusSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

    void updateFromModel() override;

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    QPointer<NxView> statusLineView;
    QPointer<NxImageView> statusLineIcon;
    QPointer<NxTextField> statusLineText;
    QPointer<NothingToDoView> m_nothingToDo;
    QPointer<NxScrollView> m_nothingToDoScrollView;
    QPointer<StatusMessagesTableView> statusMessagesTableView;
    std::unique_ptr<StatusMessagesTableDelegate> tableViewDelegate;
};

} // namespace fv2
