// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/FV2Application.h"
#include "model/FV2AppStateModel.h"
#include "model/FV2SocketServiceClient.h"
#include "platform/FV2Appearance.h"
#include "platform/FV2DesktopActivation.h"
#include "platform/FV2DesktopDispatch.h"
#include "platform/FV2DesktopNotifications.h"
#include "platform/FV2DoNotDisturb.h"
#include "platform/FV2Images.h"
#include "platform/FV2LauncherProgress.h"
#include "platform/FV2LoginSession.h"
#include "platform/FV2PamPassword.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2QtTimerService.h"
#include "platform/FV2Settings.h"
#include "platform/FV2UnixSignals.h"
#include "screens/FV2ScreenFactory.h"
#include "shell/AppDelegate.h"
#include "shell/FV2Announcer.h"

#include <memory>

namespace fv2 {

//! All parts of the running agent, built on one another. Main thread only.
class FV2Agent {
public:
    FV2Agent(FV2Application& application, FV2UnixSignals& signals, FV2Settings settings);

    //! Runs until something ends the event loop, and returns its status. `showWindow`: the user wants to see the agent.
    [[nodiscard]] int run(bool showWindow);

private:
    [[nodiscard]] std::unique_ptr<FV2AppStateModel> makeModel();
    [[nodiscard]] FV2AppConfigModel makeAppConfigModel() const;
    void followDesktop(FV2UnixSignals& signals);
    void announce();
    void onAppearanceChanged();

    FV2Application& m_application;
    const FV2Settings m_settings;
    const FV2SupportContact m_support;
    FV2QtStrings m_strings;
    FV2Images m_images;
    FV2TrayItem m_trayItem;
    FV2StatusMenu m_menu;
    FV2QtTimerService m_timers;
    FV2SocketServiceClient m_service{m_settings.credentialsToRootOnly};
    FV2PamPassword m_passwords;
    FV2DesktopDispatch m_dispatch;
    FV2Appearance m_appearance;
    FV2DoNotDisturb m_doNotDisturb;
    FV2LoginSession m_session;
    FV2DesktopActivation m_activation;
    bool m_hasWindows = false; //!< or had some
    const std::unique_ptr<FV2AppStateModel> m_appModel;
    FV2AppConfigModel m_appConfigModel; //!< after the model, whose making names the strings
    FV2ScreenFactory m_screens;
    FV2WindowDelegate m_wndDelegate;
    AppDelegate m_delegate;
    FV2DesktopNotifications m_notifications;
    FV2LauncherProgress m_launcherProgress;
    FV2Announcer m_announcer;
};

} // namespace fv2
