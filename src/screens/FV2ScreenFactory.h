// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "shell/FV2WindowDelegate.h"

#include <memory>
#include <string>

namespace fv2 {

//! Makes the agent's windows. Main thread only; outlives the registry.
class FV2ScreenFactory final : public FV2WindowFactory {
public:
    //! `userName`: whose password the dialog asks for.
    FV2ScreenFactory(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel, std::string userName)
        : m_appModel(appModel)
        , m_appConfigModel(appConfigModel)
        , m_userName(std::move(userName)) {}

    [[nodiscard]] std::shared_ptr<FV2MainWindowController> makeMainWindow() override;
    [[nodiscard]] std::shared_ptr<FV2PasswordWindowController> makePasswordWindow(bool encrypting) override;

private:
    FV2AppStateModel& m_appModel;
    FV2AppConfigModel& m_appConfigModel;
    const std::string m_userName;
};

} // namespace fv2
