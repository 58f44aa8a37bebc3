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
    FV2ScreenFactory(std::weak_ptr<FV2AppStateModel> appModel, std::string userName)
        : m_appModel(std::move(appModel))
        , m_userName(std::move(userName)) {}

    [[nodiscard]] std::shared_ptr<FV2MainWindowController> makeMainWindow(FV2WindowDelegate& registry) override;
    [[nodiscard]] std::shared_ptr<FV2PasswordWindowController> makePasswordWindow(FV2WindowDelegate& registry,
                                                                                  bool encrypting) override;

private:
    std::weak_ptr<FV2AppStateModel> m_appModel;
    const std::string m_userName;
};

} // namespace fv2
