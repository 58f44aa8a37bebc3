// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/AppDelegate.h"

#include "model/Fakes.h"
#include "shell/FakeWindows.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! The delegate on a model among fakes, with the listener on a real socket.
class AppDelegateTest : public Model {
protected:
    FV2Images images;
    FV2TrayItem trayItem{images, strings};
    FakeWindows windows{*model};
    FV2WindowDelegate registry{*model, windows.config, windows};
    FV2StatusMenu menu{strings};
    int quits = 0;
    //! As the event loop does: reports its end.
    AppDelegate delegate{
        {.appModel = *model, .wndDelegate = registry, .menuBarStatusItem = trayItem, .menu = menu, .quit = [this] {
             ++quits;
             delegate.applicationWillTerminate();
         }}};
};

TEST_F(AppDelegateTest, StartsTheListenerAndTheFirstRefreshWithoutWaitingForEither) {
    delegate.applicationDidFinishLaunching(false);
    EXPECT_TRUE(link.asked.empty()) << "asked on the main thread";
    link.status = statusAnswer(7);
    EXPECT_EQ(settled(), "open 3; ") << "what the first refresh calls for";
    EXPECT_TRUE(connectTo(path));
}

TEST_F(AppDelegateTest, SaysGoodbyeOnceAndStopsListening) {
    delegate.applicationDidFinishLaunching(false);
    ASSERT_TRUE(connectTo(path));
    settled();
    link.asked.clear();
    delegate.exitApplication();
    EXPECT_FALSE(std::filesystem::exists(path));
    delegate.exitApplication();
    settled();
    const std::vector<std::string> goodbye{"cancel", "farewell " + unsubscribeRequest(501, "t1")};
    EXPECT_EQ(link.asked, goodbye);
    EXPECT_EQ(quits, 2);
}

TEST_F(AppDelegateTest, ASecondCopyBringsUpTheWindowsAndIsNotTheUser) {
    registry.openWindow(fv2Window::Main, true);
    int byUser = 0;
    QObject::connect(&registry.registeredController(fv2Window::Main)->window(), &FV2Window::madeKey, [&] { ++byUser; });
    delegate.menuShowMainWindow();
    EXPECT_EQ(byUser, 0);
    Q_EMIT menu.showMainWindow();
    EXPECT_EQ(byUser, 1);
}

TEST_F(AppDelegateTest, TheMenuOffersASynchronisationExceptWhileOneRuns) {
    const QAction& entry = *menu.menu().actions().last();
    refresh(statusAnswer(1, R"(,"sync_active":1)"), fv2SyncSource::Moved);
    EXPECT_FALSE(entry.isEnabled());
    refresh(statusAnswer(1), fv2SyncSource::Moved);
    EXPECT_TRUE(entry.isEnabled());
    link.answerToOthers = R"({"result":true})";
    delegate.menuProxySync();
    EXPECT_FALSE(entry.isEnabled());
    settled();
    EXPECT_TRUE(entry.isEnabled());
}

//! Its token would not be good any more.
TEST_F(AppDelegateTest, ARefreshUnderWayWhenTheSessionResignsDoesNotSubscribeItAgain) {
    delegate.applicationDidFinishLaunching(false);
    link.heldUp = "get_status";
    link.meanwhile = [this] { delegate.sessionResigned(); };
    link.token = "new";
    settled();
    EXPECT_EQ(link.asked.back(), unsubscribeRequest(501, "new"));
    link.asked.clear();
    later(std::chrono::hours(24));
    EXPECT_TRUE(link.asked.empty());
}

TEST_F(AppDelegateTest, EndsAlsoWhenTheLoopEndsByItselfOrBeforeTheStart) {
    delegate.applicationWillTerminate();
    EXPECT_EQ(quits, 0);
    settled();
    EXPECT_EQ(link.asked.size(), 2U);
}

} // namespace
} // namespace fv2::test
