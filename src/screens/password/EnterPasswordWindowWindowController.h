// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/password/EnterPasswordWindowViewController.h"
#include "screens/password/FV2WindowTitlebar.h"
#include "shell/FV2WindowController.h"

#include <memory>

namespace fv2 {

//! The dialog that asks for the user's password, for one of the two directions. Built anew at each opening; main thread
//! only.
class EnterPasswordWindowWindowController final : public FV2PasswordWindowController {
    Q_OBJECT
public:
    EnterPasswordWindowWindowController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                        const std::string& userName, bool encrypting);

    void postponeAndClose() override;
    void forget() override;

protected:
    void windowWillClose() override;

private:
    std::unique_ptr<FV2WindowTitlebarAccessoryViewController> titlebarViewController;
    std::shared_ptr<EnterPasswordWindowViewController> viewController;
    const bool encrypting;
};

} // namespace fv2
