// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/main/MainWindowViewController.h"
#include "shell/FV2WindowController.h"

#include <memory>

namespace fv2 {

//! The agent's one large window. Built anew at each opening; main thread only.
class MainWindowWindowController final : public FV2MainWindowController {
    Q_OBJECT
public:
    MainWindowWindowController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

    //! Nothing once the window closes.
    [[nodiscard]] MainWindowViewController* viewController() const { return m_viewController.get(); }

    void updateFromModel() override;
    void selectProtectionStatusPage() override;

protected:
    void windowWillClose() override;

private:
    std::shared_ptr<MainWindowViewController> m_viewController;
};

} // namespace fv2
