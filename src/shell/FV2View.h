// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "toolkit/NxView.h"

#include <memory>

namespace fv2 {

//! The content view of a screen or of a part of one. Its parent widget owns it. Main thread only.
class FV2View : public NxView {
    Q_OBJECT
public:
    using NxView::NxView;

    void setupWithModel(std::weak_ptr<FV2AppStateModel> model) { appModel = std::move(model); }

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

    std::weak_ptr<FV2AppStateModel> appModel;
};

} // namespace fv2
