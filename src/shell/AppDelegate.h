// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "model/FV2Ports.h"
#include "platform/FV2TrayWatcher.h"
#include "shell/FV2TrayItem.h"

#include <functional>
#include <optional>

namespace fv2 {

//! Starts the agent's parts in order, opens the application window when asked, and ends everything in order. Main
//! thread only. The model and the tray item are lent to it and outlive it.
class AppDelegate final : public FV2ApplicationDelegate {
public:
    //! `quit` ends the event loop, which reports it to applicationWillTerminate().
    AppDelegate(FV2AppStateModel& appModel, FV2TrayItem& trayItem, std::function<void()> quit);

    //! The first lines of every run's log.
    static void logBanner();

    void applicationDidFinishLaunching();
    void exitApplication();
    //! Says goodbye to the service and stops the listener, whoever has ended the event loop. The end takes under a
    //! second.
    void applicationWillTerminate();

    [[nodiscard]] FV2StatusItem& menuBarStatusItem() override { return m_trayItem; }
    void menuShowMainWindow() override;

private:
    void handleTerminate();

    FV2AppStateModel& m_appModel;
    FV2TrayItem& m_trayItem;
    std::function<void()> m_quit;
    std::optional<FV2TrayWatcher> m_trayWatcher;
    bool terminating = false;
};

} // namespace fv2
