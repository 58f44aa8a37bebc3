// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2AppConfigModel.h"
#include "toolkit/NxView.h"

namespace fv2 {

//! The content view of a screen or of a part of one. Its parent widget owns it. Main thread only.
class FV2View : public NxView {
    Q_OBJECT
public:
    using NxView::NxView;

    //! From now on the view follows the appearance. Views inside a screen's own leave that to it.
    void setupWithModel(FV2AppConfigModel& model) { appConfigModel = &model; }

    //! Fills the parent, in front of what has been pinned there before; that one is hidden, so that neither the
    //! keyboard nor a screen reader finds it underneath.
    void pinToSuperview();

Q_SIGNALS:
    //! The colours of the configuration model are those of the new appearance.
    void effectiveAppearanceChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void viewDidChangeEffectiveAppearance();

    FV2AppConfigModel* appConfigModel = nullptr;
};

} // namespace fv2
