// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "toolkit/NxTextAndLinksView.h"

#include <memory>

namespace fv2 {

//! The text of a status message. All its links mean the same: the message's one command, whatever their tags say.
//! Main thread only.
class StatusMessageItemTextAndLink final : public NxTextAndLinksView {
    Q_OBJECT
public:
    using NxTextAndLinksView::NxTextAndLinksView;

    std::weak_ptr<FV2AppStateModel> appModel;
    fv2AppCommand appCommand = fv2AppCommand::NoAction;

protected:
    //! Carrying out the command may take this view away: it lives on until the event loop's next turn.
    void clickedOnLink(int index) override;
};

} // namespace fv2
