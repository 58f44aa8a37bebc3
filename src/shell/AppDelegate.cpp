// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/AppDelegate.h"

#include "logging/FV2Logging.h"
#include "platform/FV2ThisProcess.h"

#include <QCursor>

namespace fv2 {

AppDelegate::AppDelegate(Parts parts)
    : m_parts(std::move(parts)) {
    m_parts.appModel.setAppDelegate(*this);
    FV2StatusMenu& menu = m_parts.menu;
    connect(&menu, &FV2StatusMenu::opened, this, [] {
        logTrace("rmup");
        logRelease("StatusBarMenu Clicked");
    });
    connect(&menu, &FV2StatusMenu::closed, this, [] { logRelease("StatusBarMenu Closed"); });
    connect(&menu, &FV2StatusMenu::showMainWindow, this, [this] { showMainWindow(true); });
    connect(&menu, &FV2StatusMenu::hideMainWindow, this, &AppDelegate::menuHideMainWindow);
    connect(&menu, &FV2StatusMenu::proxySync, this, &AppDelegate::menuProxySync);
    connect(&m_parts.wndDelegate, &FV2WindowDelegate::windowsChanged, this, &AppDelegate::updateMenu);
    m_parts.menuBarStatusItem.setMenu(menu.menu(), [this] { onMenuBarStatusItemClicked(); });
}

void AppDelegate::logBanner() {
    logRelease(std::string(80, '*'));
    logRelease("Application started.");
}

void AppDelegate::applicationDidFinishLaunching(bool launchedByFileManager) {
    showIcon(m_parts.appModel.state());
    m_trayWatcher.emplace(
        [this] {
            m_parts.menuBarStatusItem.showInTray();
            Q_EMIT trayMissing(false);
        },
        [this] { Q_EMIT trayMissing(true); });
    m_parts.appModel.runBackgroundThread();
    m_parts.appModel.syncCommsAsync(true, fv2SyncSource::Startup, false);
    if (launchedByFileManager) {
        showMainWindow(true);
        logRelease("Was launched by Finder");
    }
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
    logRelease("Relaunched when already running. Showing main window. (applicationShouldHandleReopen())");
    showMainWindow(true);
    return false;
}

void AppDelegate::sessionBecameActive() {
    logRelease("sessionBecameActive() - Sync");
    m_parts.appModel.syncCommsAsync(false, fv2SyncSource::Moved, false);
}

void AppDelegate::sessionResigned() {
    logRelease("sessionResigned() - unsubscribeFromNotifications");
    m_parts.appModel.unsubscribeFromNotifications();
}

//! A click of the left button: the host itself shows the menu for the right one.
void AppDelegate::onMenuBarStatusItemClicked() {
    logTrace("lbup");
    logRelease("StatusBarMenu Clicked");
    // There a program can't place a menu beside the panel.
    if (isWaylandSession())
        m_parts.menu.triggerFirst();
    else
        m_parts.menu.popUp(QCursor::pos());
}

void AppDelegate::stateChanged(const FV2AppState& state) {
    showIcon(state);
    updateMenu();
    m_parts.wndDelegate.stateChanged(state);
    Q_EMIT stateShown(state);
}

void AppDelegate::showIcon(const FV2AppState& state) {
    m_parts.menuBarStatusItem.show(state.getMenuBarStatusIcon(), state.overallState, state.percent());
}

//! Hidden windows count as not there: the entry that brings them back has to be offered. So do all windows of a Wayland
//! client, as nobody tells whether they were minimised.
void AppDelegate::updateMenu() {
    const FV2WindowDelegate& windows = m_parts.wndDelegate;
    m_parts.appModel.setWatched(windows.isAnyWindowMain());
    m_parts.menu.update(windows.isOpen(fv2Window::Main) && windows.isAnyWindowMain() && !isWaylandClient(),
                        !m_parts.appModel.state().syncORMActive);
}

//! Asked for by a second copy, which the user or the desktop may have started. A prompt stays shut.
void AppDelegate::menuShowMainWindow() {
    showMainWindow(false);
}

void AppDelegate::showMainWindow(bool byUser) {
    logRelease("StatusBarMenu Open Application Window");
    m_parts.appModel.syncCommsAsync(false, fv2SyncSource::Moved, false);
    if (!m_parts.wndDelegate.showAll(byUser))
        m_parts.wndDelegate.openWindow(fv2Window::Main, true);
}

void AppDelegate::menuHideMainWindow() {
    logRelease("StatusBarMenu Hide Application Window");
    m_parts.wndDelegate.hideApplicationWindows();
}

void AppDelegate::menuProxySync() {
    logRelease("StatusBarMenu Proxy Sync");
    Q_EMIT userSynchronises();
    m_parts.appModel.syncProxyAsync(fv2SyncSource::User, false);
}

//! A minimised window would take a dialog over it along.
void AppDelegate::enterPassword(fv2AppCommand command) {
    m_parts.wndDelegate.showAll(true);
    m_parts.appModel.performAction(command, true);
}

void AppDelegate::exitApplication() {
    logRelease("exitApplication called");
    logTrace("applicationShouldTerminate()");
    m_parts.quit();
}

void AppDelegate::applicationWillTerminate() {
    logRelease("applicationWillTerminate()");
    if (!terminating)
        m_parts.appModel.unsubscribeAtExit();
    handleTerminate();
    m_parts.wndDelegate.closeAll();
}

void AppDelegate::handleTerminate() {
    if (terminating) {
        logRelease("handleTerminate() already done.");
        return;
    }
    logRelease("handleTerminate() shutting down background thread.");
    m_parts.appModel.stopBackgroundThread();
    terminating = true;
}

} // namespace fv2
