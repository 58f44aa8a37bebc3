// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2ViewController.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"

#include <QPointer>

namespace fv2 {

//! The strip along the bottom of the content column: who looks after this computer. Main thread only.
class TaglineViewController final : public FV2ViewController {
    Q_OBJECT
public:
    TaglineViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    QPointer<NxView> backgroundView;
    QPointer<NxImageView> taglineImageView;
    QPointer<NxTextField> m_text;
};

} // namespace fv2
