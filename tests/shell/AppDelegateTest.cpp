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

TEST_F(AppDelegateTest, TellsOfEveryOpeningAndClosingOfTheMenu) {
    Q_EMIT m_menu.menu().aboutToShow(); // by the host
    Q_EMIT m_menu.menu().aboutToHide();
    EXPECT_EQ(firstOutOfOrder({"rmup", "StatusBarMenu Clicked", "StatusBarMenu Closed"}), "");
}

//! Its token would not be good any more.
TEST_F(AppDelegateTest, ARefreshUnderWayWhenTheSessionResignsDoesNotSubscribeItAgain) {
    m_delegate.applicationDidFinishLaunching(false);
    m_service.heldUp = "get_status";
    m_service.meanwhile = [this] { m_delegate.sessionResigned(); };
    m_service.token = "new";
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked.back(), unsubscribeRequest(501, "new"));
    m_service.asked.clear();
    m_timers.advance(std::chrono::hours(24));
    m_dispatch.settle();
    EXPECT_EQ(m_service.asked, std::vector<std::string>());
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
