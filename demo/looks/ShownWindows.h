// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/Fakes.h"
#include "platform/FV2QtStrings.h"
#include "screens/FV2ScreenFactory.h"
#include "screens/main/MainWindowWindowController.h"
#include "screens/password/EnterPasswordWindowWindowController.h"
#include "shell/FV2WindowDelegate.h"

namespace fv2::looks {

//! The real windows with the real texts, on a model whose service says what it is told to.
class ShownWindows {
public:
    ShownWindows(const QString& language, bool dark, const FV2SupportContact& support);
    ~ShownWindows();

    //! Lets layouts come to rest, each of which may ask another one to begin anew.
    static void layOut();

    //! The state that the service tells, with more members of its answer.
    void tell(std::int64_t state, const std::string& more = {});
    MainWindowViewController& pages();
    FV2Window& mainWindow();
    FV2Window& passwordDialog();
    //! The alert over the dialog that asks whether to do it later.
    QWidget& alert();

private:
    [[nodiscard]] std::shared_ptr<FV2AppStateModel> makeModel();
    void settle();

    test::TemporaryFolder m_folder;
    FV2QtStrings m_strings;
    test::HandDispatch m_dispatch;
    test::ToldTimers m_timers;
    test::ScriptedLink m_link;
    test::FakeInterface m_interface;
    test::OnePassword m_passwords;
    std::shared_ptr<FV2AppStateModel> m_model;
    FV2AppConfigModel m_config;
    FV2ScreenFactory m_screens;
    FV2WindowDelegate m_registry;
};

} // namespace fv2::looks
