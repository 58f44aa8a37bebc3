// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2ViewController.h"

namespace fv2 {

//! The page for setting the product up; no row of the menu leads to it. Main thread only.
class SetupSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    SetupSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;
};

} // namespace fv2
