// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "toolkit/NxTextAndLinksView.h"

namespace fv2 {

//! The text of a status message. All its links mean the same: the message's one command, whatever their tags say.
//! Main thread only.
class StatusMessageItemTextAndLink final : public NxTextAndLinksView {
    Q_OBJECT
public:
    StatusMessageItemTextAndLink(FV2AppStateModel& model, fv2AppCommand command, QWidget* parent = nullptr)
        : NxTextAndLinksView(parent)
        , appModel(model)
        , appCommand(command) {}

protected:
    //! Carrying out the command may take this view away: it lives on until the event loop's next turn.
    void clickedOnLink(int index) override;

private:
    FV2AppStateModel& appModel;
    const fv2AppCommand appCommand;
};

} // namespace fv2
