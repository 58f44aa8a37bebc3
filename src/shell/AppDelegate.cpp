// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/AppDelegate.h"

#include "logging/FV2Logging.h"

namespace fv2 {

namespace {

void release(const std::string& text) {
    log(FV2LoggingLevel::release, {text});
}

} // namespace

AppDelegate::AppDelegate(FV2AppStateModel& appModel, FV2TrayItem& trayItem, std::function<void()> quit)
    : m_appModel(appModel)
    , m_trayItem(trayItem)
    , m_quit(std::move(quit)) {
    m_appModel.setAppDelegate(*this);
}

void AppDelegate::logBanner() {
    release(std::string(80, '*'));
    release("Application started.");
}

void AppDelegate::applicationDidFinishLaunching() {
    m_trayItem.show(m_appModel.state().getMenuBarStatusIcon(), m_appModel.state().overallState);
    m_trayWatcher.emplace([this] { m_trayItem.appear(); });
    m_appModel.runBackgroundThread();
    m_appModel.syncCommsAsync(true, fv2SyncSource::Startup, false);
}

void AppDelegate::menuShowMainWindow() {
    release("StatusBarMenu Open Application Window");
    m_appModel.syncCommsAsync(false, fv2SyncSource::Moved, false);
}

void AppDelegate::exitApplication() {
    release("exitApplication called");
    log(FV2LoggingLevel::trace, {"applicationShouldTerminate()"});
    m_quit();
}

void AppDelegate::applicationWillTerminate() {
    release("applicationWillTerminate()");
    if (!terminating)
        m_appModel.unsubscribeAtExit();
    handleTerminate();
}

void AppDelegate::handleTerminate() {
    if (terminating) {
        release("handleTerminate() already done.");
        return;
    }
    release("handleTerminate() shutting down background thread.");
    m_appModel.stopBackgroundThread();
    terminating = true;
}

} // namespace fv2
