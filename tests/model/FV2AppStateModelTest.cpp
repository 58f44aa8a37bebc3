// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"

using namespace std::chrono_literals;

namespace fv2::test {

using enum fv2SyncSource;

TEST_F(Model, AsksForTokenThenStatusAndSaysGoodbyeWithThatToken) {
    refresh(statusAnswer(6), Moved);
    model->unsubscribeAtExit();
    settled();
    const std::string goodbye = "farewell " + unsubscribeRequest(501, "t1");
    const std::vector<std::string> expected{getTokenRequest(501), getStatusRequest(501), "cancel", goodbye};
    EXPECT_EQ(link.asked, expected);
}

TEST_F(Model, ActsOnAChangedActionOnceWhereTheSourceAllows) {
    const std::vector<std::tuple<fv2SyncSource, std::string, std::string>> table{
        {None, "", ""},
        {Moved, "", ""},
        {Startup, "open 3; ", "open 3; "},
        {Service, "open 3; ", ""},
        {User, "open 3 for user; ", "status page; open 3 for user; "}};
    for (const auto& [source, whileClosed, whileOpen] : table)
        for (const bool open : {false, true}) {
            SCOPED_TRACE(caseName(source));
            interface.open = open ? fv2Window::Main : fv2Window::None;
            refresh(statusAnswer(6), Moved);
            EXPECT_EQ(refresh(statusAnswer(3), source, false), "") << "not to be checked";
            EXPECT_EQ(refresh(statusAnswer(7, R"(,"sync_ok":0)"), source), open ? whileOpen : whileClosed);
            EXPECT_EQ(refresh(statusAnswer(7), User), "") << "once for each change, carried out or not";
        }
    EXPECT_EQ(interface.mainUpdates, 5 * 4) << "while it was open";
}

TEST_F(Model, ShowsAnAlertOnlyWhenAskedForAndOnTheOpenMainWindow) {
    const std::string refused = R"({"result":false,"error_code":255})";
    refresh(refused, Moved); // from here on this failure calls for nothing new
    for (const fv2Window window : {fv2Window::None, fv2Window::Password_Encrypt, fv2Window::Main}) {
        interface.open = window;
        EXPECT_EQ(refresh(refused, User), "");
        for (const fv2AppCommand command : {fv2AppCommand::RetryComms, fv2AppCommand::GetStatus}) {
            model->performAction(command, true);
            EXPECT_EQ(settled(), window == fv2Window::Main ? "alert on 1: 255 1; " : "");
        }
    }
    EXPECT_EQ(refresh(statusAnswer(6), User, true, true), "");
}

TEST_F(Model, SynchronisesOneAtATimeAndTakesTheServicesNextWordForTheUsers) {
    interface.open = fv2Window::Main;
    refresh(statusAnswer(1), Moved);
    int rounds = 0;
    for (const auto& [answer, calls] : std::vector<std::pair<std::string, std::string>>{
             {R"({"success":true})", ""}, {R"({"error_code":5})", "alert on 1: 5 6; "}, {"{", "alert on 1: 0 1; "}}) {
        link.answerToOthers = answer;
        model->performAction(fv2AppCommand::ProxySync_ORM, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_sync") << "at once";
        const auto inFlight = std::exchange(dispatch.workers, {});
        model->syncProxyAsync(User, true);
        EXPECT_TRUE(model->state().syncORMActive) << "as it was before";
        refresh(statusAnswer(1), Moved);
        model->syncProxyAsync(User, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_warning") << "as it was before";
        inFlight.at(0)();
        EXPECT_EQ(settled(), calls) << answer;
        EXPECT_EQ(asked(proxySyncRequest(501, "t1")), ++rounds) << "not in flight, not dropped";
        EXPECT_FALSE(model->state().syncORMActive);
    }
    EXPECT_EQ(refresh(statusAnswer(6), Moved), "") << "not the service's";
    EXPECT_EQ(refresh(statusAnswer(3), Service), "status page; open 2 for user; ");
    EXPECT_EQ(refresh(statusAnswer(7), Service), "") << "only the first";
}

TEST_F(Model, NeverPutsAnOlderTokenOrStatusOverANewerOne) {
    for (const std::string held : {"get_token", "get_status"}) {
        model->syncCommsAsync(true, User, false);
        model->syncCommsAsync(true, User, false);
        const auto jobs = std::exchange(dispatch.workers, {});
        link.heldUp = held;
        link.token = "older";
        link.status = statusAnswer(1);
        link.meanwhile = [&] {
            link.token = "newer";
            link.status = statusAnswer(6);
            jobs.at(1)();
        };
        jobs.at(0)();
        settled();
        EXPECT_EQ(model->state().commsToken + " " + interface.icons.back(), "newer orm_menu_icon") << held;
    }
}

TEST_F(Model, AsksEveryMinuteWhileNoNotificationCanBeExpectedAndOtherwiseNowAndThen) {
    const auto asksIn = [&](std::chrono::milliseconds time) {
        const auto before = asked();
        timers.advance(time);
        settled();
        return asked() - before;
    };
    refresh("", Moved);
    EXPECT_EQ(asksIn(59'999ms), 0);
    EXPECT_EQ(asksIn(1ms), 1);
    refresh(statusAnswer(0), Moved);
    EXPECT_EQ(asksIn(9min), 0) << "reached, so its notifications come";
    EXPECT_EQ(asksIn(1min), 1);
    std::filesystem::create_directory(path);
    model->runBackgroundThread();
    long asks = 0;
    for (int halfMinute = 0; halfMinute < 8; ++halfMinute, ::usleep(40'000)) // in which it tries its path again
        asks += asksIn(30s);
    EXPECT_GE(asks, 3);
    std::filesystem::remove(path);
    EXPECT_TRUE(connectTo(path));
    model->stopBackgroundThread();
    EXPECT_EQ(asksIn(25ms), 1) << "for what was missed";
}

TEST_F(Model, AnswersEachMessageAndRefreshesOnceForThoseThatWait) {
    link.status = statusAnswer(6);
    model->runBackgroundThread();
    for (const std::string message : {"{}", R"({ "command": "get_status" })", R"({ "command": "show_ui" })"})
        EXPECT_EQ(exchange(message), R"("{ "result": 0 }")");
    EXPECT_EQ(exchange("garbage"), R"("{ "result": 1 }")");
    model->stopBackgroundThread();
    EXPECT_EQ(settled(), "show main window; ");
    timers.advance(1min);
    settled();
    EXPECT_EQ(asked(), 1) << "no second one waits";
}

TEST_F(Model, StopsWithinMomentsFromAnyState) {
    UniqueFd half;
    for (unsigned round = 0; round < 200; ++round) {
        model = make(dispatch, link);
        model->runBackgroundThread();
        if (round % 10 == 0)
            sendAll(half = connectTo(path), "{ half");
        ::usleep(round % 4 * 100);
        const auto begin = Deadline::Clock::now();
        model->stopBackgroundThread();
        EXPECT_LT(Deadline::Clock::now() - begin, 200ms) << round;
        ASSERT_FALSE(std::filesystem::exists(path)) << round;
    }
}

} // namespace fv2::test
