// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "shell/FV2View.h"

namespace fv2 {

//! One row of the status messages, in the colour of its message. Main thread only.
class StatusMessageItemSubview final : public FV2View {
    Q_OBJECT
public:
    using FV2View::FV2View;

    fv2StatusStateType statusType = fv2StatusStateType::Green;

Q_SIGNALS:
    //! It has been laid out anew: time for its background.
    void laidOut();
    //! The title's font is made of it.
    void fontChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
};

} // namespace fv2
