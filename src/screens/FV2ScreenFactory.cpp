// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/FV2ScreenFactory.h"

#include "screens/main/MainWindowWindowController.h"
#include "screens/password/EnterPasswordWindowWindowController.h"

namespace fv2 {

std::shared_ptr<FV2MainWindowController> FV2ScreenFactory::makeMainWindow() {
    return makeController<MainWindowWindowController>(m_appModel, m_appConfigModel);
}

std::shared_ptr<FV2PasswordWindowController> FV2ScreenFactory::makePasswordWindow(bool encrypting) {
    return makeController<EnterPasswordWindowWindowController>(m_appModel, m_appConfigModel, m_userName, encrypting);
}

} // namespace fv2
