// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/AppDelegate.h"

#include "comms/TestEndpoint.h"
#include "model/Fakes.h"
#include "shell/FakeWindows.h"
#include "support/LogScope.h"
#include "support/QtLoop.h"
#include "support/RawSocket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace fv2::test {
namespace {

//! A delegate among fakes, with a listener on a real socket.
class AppDelegateTest : public ::testing::Test {
protected:
    //! How often the line stands in the log.
    [[nodiscard]] long count(const std::string& line) const {
        const auto all = m_log.messages();
        return std::count(all.begin(), all.end(), line);
    }

    //! The first of `lines` that does not follow on those before it in the log; empty when all stand there in order.
    [[nodiscard]] std::string firstOutOfOrder(const std::vector<std::string>& lines) const {
        const auto all = m_log.messages();
        auto from = all.begin();
        for (const std::string& line : lines) {
            from = std::find(from, all.end(), line);
            if (from == all.end())
                return line;
            ++from;
        }
        return {};
    }

    LogScope m_log{{FV2LoggingLevel::release, FV2LoggingLevel::trace}};
    TemporaryFolder m_folder;
    const std::string m_path = m_folder / "agent.sock";
    MarkedStrings m_strings;
    FV2Images m_images;
    FV2TrayItem m_trayItem{m_images, m_strings};
    HandDispatch m_dispatch;
    ToldTimers m_timers;
    ScriptedLink m_service;
    std::shared_ptr<FV2AppStateModel> m_model = std::make_shared<FV2AppStateModel>(
        FV2AppStateModel::Surroundings{.dispatch = m_dispatch,
                                       .timers = m_timers,
                                       .service = m_service,
                                       .strings = m_strings,
                                       .mediumDate = [](std::int64_t) { return std::string(); },
                                       .computerName = "host",
                                       .makeAppSocket = [this] { return std::make_unique<TestEndpoint>(m_path); }},
        501);
    FakeWindows m_windows;
    FV2WindowDelegate m_registry{m_model, m_windows};
    FV2StatusMenu m_menu{m_strings};
    int m_quits = 0;
    //! As the event loop does: reports its end.
    AppDelegate m_delegate{{.appModel = *m_model,
                            .wndDelegate = m_registry,
                            .menuBarStatusItem = m_trayItem,
                            .menu = m_menu,
                            .quit = [this] {
                                ++m_quits;
                                m_delegate.applicationWillTerminate();
                            }}};
};

TEST_F(AppDelegateTest, StartsTheListenerAndThenTheFirstRefreshWithoutWaitingForEither) {
    AppDelegate::logBanner();
    m_delegate.applicationDidFinishLaunching(false);
    EXPECT_EQ(m_service.asked, std::vector<std::string>()) << "asked on the main thread";
    m_service.status = statusAnswer(7);
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked.size(), 2U);
    EXPECT_EQ(m_model->state().overallState, fv2StatusStateType::Yellow);
    EXPECT_EQ(firstOutOfOrder({std::string(80, '*'), "Application started.", "runBackgroundThread -> in",
                               "syncCommsAsync() in.", "syncCommsAsync -> source is Startup",
                               "appModel->updateFromModel -> performing action"}),
              "");
    EXPECT_EQ(count("getMenuBarStatusIcon returning image: orm_menu_icon_alert"), 1) << "no icon before the answer";
    EXPECT_TRUE(connectTo(m_path));
}

TEST_F(AppDelegateTest, OpensTheApplicationWindowForAnotherCopy) {
    m_delegate.applicationDidFinishLaunching(false);
    const UniqueFd copy = connectTo(m_path);
    ASSERT_TRUE(sendAll(copy, R"({ "command": "show_ui" })"));
    EXPECT_EQ(receiveAll(copy), R"("{ "result": 0 }")");
    const std::string line = "StatusBarMenu Open Application Window";
    EXPECT_EQ(count(line), 0) << "on the listener's thread";
    EXPECT_TRUE(runLoopUntil([&] {
        m_dispatch.settle();
        return count(line) == 1;
    }));
}

TEST_F(AppDelegateTest, SaysGoodbyeOnceAndStopsListening) {
    m_delegate.applicationDidFinishLaunching(false);
    ASSERT_TRUE(connectTo(m_path));
    m_dispatch.settle();
    m_service.asked.clear();

    m_delegate.exitApplication();
    EXPECT_EQ(m_quits, 1);
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_EQ(firstOutOfOrder({"exitApplication called", "applicationShouldTerminate()", "applicationWillTerminate()",
                               "Unsubscribe from notifications.", "handleTerminate() shutting down background thread.",
                               "waiting for background thread to die", "background thread died"}),
              "");
    EXPECT_EQ(count("handleTerminate() already done."), 0);

    m_delegate.exitApplication();
    EXPECT_EQ(count("handleTerminate() already done."), 1);
    EXPECT_EQ(count("waiting for background thread to die"), 1);
    m_dispatch.settle();
    ASSERT_EQ(m_service.asked.size(), 2U);
    EXPECT_EQ(m_service.asked[0], "cancel");
    EXPECT_EQ(m_service.asked[1].find("farewell {"), 0U);
    EXPECT_NE(m_service.asked[1].find(R"("unsubscribe")"), std::string::npos);
}

//! The menu as a tray's host copies it.
TEST_F(AppDelegateTest, KeepsTheMenuTrueAfterEveryChange) {
    m_model->setWndDelegate(&m_registry);
    const auto shown = [this] {
        std::string all;
        for (const QAction* entry : m_menu.menu().actions())
            all += entry->isSeparator() ? "| " : entry->text().toStdString() + (entry->isEnabled() ? " " : " (off) ");
        return all;
    };
    const std::string open = "MGUI_MENUBAR_OPEN_ORM %1 | MGUI_MENUBAR_PROXYSYNC_ORM %1 ";
    const std::string hide = "MGUI_MENUBAR_HIDE_ORM %1 | MGUI_MENUBAR_PROXYSYNC_ORM %1 ";
    m_delegate.applicationDidFinishLaunching(false);
    m_dispatch.settle();
    EXPECT_EQ(shown(), open);
    m_menu.triggerFirst();
    EXPECT_EQ(shown(), hide);
    m_service.asked.clear();
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked.size(), 2U) << "opening the window asks for news";

    m_registry.openWindow(fv2Window::Password_Encrypt, true);
    m_menu.triggerFirst();
    EXPECT_EQ(shown(), open) << "hidden windows have to be reached";
    EXPECT_TRUE(m_registry.isOpen(fv2Window::Main));
    m_menu.triggerFirst();
    EXPECT_EQ(shown(), hide);
    EXPECT_EQ(m_windows.made, 2) << "hidden windows are used again";
    m_registry.registeredController(fv2Window::Password_Encrypt)->window().closeWindow();
    m_registry.registeredController(fv2Window::Main)->window().showMinimized();
    EXPECT_EQ(shown(), open);

    m_service.heldUp = "proxy_sync";
    std::string during;
    m_service.meanwhile = [&] { during = shown(); };
    m_menu.menu().actions().back()->trigger();
    m_dispatch.settle();
    EXPECT_EQ(during, "MGUI_MENUBAR_OPEN_ORM %1 | MGUI_MENUBAR_PROXYSYNC_ORM %1 (off) ");
    EXPECT_EQ(shown(), open) << "also when the synchronisation failed";
    EXPECT_EQ(firstOutOfOrder({"StatusBarMenu Open Application Window", "StatusBarMenu Hide Application Window",
                               "StatusBarMenu Open Application Window", "StatusBarMenu Proxy Sync"}),
              "");
}

TEST_F(AppDelegateTest, FollowsTheUsersSessionAndEveryWayOfBeingAskedFor) {
    m_delegate.applicationDidFinishLaunching(true);
    EXPECT_TRUE(m_registry.isOpen(fv2Window::Main));
    EXPECT_EQ(count("Was launched by Finder"), 1);
    EXPECT_FALSE(m_delegate.applicationShouldHandleReopen(true));
    EXPECT_EQ(m_windows.made, 1);
    m_dispatch.settle();
    m_service.asked.clear();
    m_delegate.sessionResigned();
    m_dispatch.settle();
    ASSERT_EQ(m_service.asked.size(), 1U);
    EXPECT_NE(m_service.asked[0].find(R"("unsubscribe")"), std::string::npos);
    m_timers.advance(FV2RefreshGate::spacing);
    m_delegate.sessionBecameActive();
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked.size(), 3U);
    EXPECT_EQ(firstOutOfOrder({"sessionResigned() - unsubscribeFromNotifications", "Unsubscribe from notifications.",
                               "sessionBecameActive() - Sync", "syncCommsAsync -> source is Moved"}),
              "");
}

TEST_F(AppDelegateTest, EndsInOrderAlsoWhenTheLoopEndsByItselfOrBeforeTheStart) {
    m_delegate.applicationWillTerminate();
    EXPECT_EQ(m_quits, 0);
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked.size(), 2U);
    EXPECT_EQ(count("handleTerminate() shutting down background thread."), 1);
}

} // namespace
} // namespace fv2::test
