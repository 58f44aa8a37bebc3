// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"

#include <sys/prctl.h>

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
}

TEST_F(Model, LeavesTheDeedToTheStartUpRefreshUntilItIsOverAndQuietIsKnown) {
    const std::string failing = statusAnswer(3, R"(,"sync_ok":0)");
    quietIsKnown = false;
    model->syncCommsAsync(true, Startup, false);
    const auto startUp = std::exchange(dispatch.workers, {});
    for (const fv2SyncSource source : {Moved, Service}) {
        interface.open = fv2Window::Main;
        EXPECT_EQ(refresh(failing, source), "");
    }
    interface.open = fv2Window::None;
    startUp.at(0)();
    EXPECT_EQ(settled(), "");
    ASSERT_EQ(whenQuietIsKnown.size(), 1U);
    whenQuietIsKnown.front()();
    EXPECT_EQ(settled(), "open 2; ");
    interface.open = fv2Window::Main;
    EXPECT_EQ(refresh(statusAnswer(7), Service), "");
    EXPECT_EQ(refresh(statusAnswer(7), User), "") << "the start is over";
}

TEST_F(Model, ShowsAnAlertOnlyWhenAskedForAndOnTheOpenMainWindow) {
    const std::string refused = R"({"result":false,"error_code":255})";
    refresh(refused, Moved); // from here on this failure calls for nothing new
    for (const fv2Window window : {fv2Window::None, fv2Window::Password_Encrypt, fv2Window::Main}) {
        interface.open = window;
        EXPECT_EQ(refresh(refused, User), "");
        for (const fv2AppCommand command : {fv2AppCommand::RetryComms, fv2AppCommand::GetStatus}) {
            model->performAction(command, true);
            EXPECT_EQ(later(25ms), window == fv2Window::Main
                                       ? "alert on 1: ALERT_TITLE_COMMS %1|ALERT_ERROR_COMMS %1 (0xFF)|BUTTON_OK %1|"
                                       : "");
        }
    }
    EXPECT_EQ(refresh(statusAnswer(6), User, true, true), "");
}

TEST_F(Model, SynchronisesOneAtATimeAndTakesTheServicesNextWordForTheUsers) {
    interface.open = fv2Window::Main;
    refresh(statusAnswer(1), Moved);
    int rounds = 0;
    for (const auto& [answer, calls] : std::vector<std::pair<std::string, std::string>>{
             {R"({"error_code":-1})", "alert on 1: ALERT_ERROR_PROXYSYNC_GENERIC_TITLE %1|"
                                      "ALERT_ERROR_PROXYSYNC_PROBLEM %1 (0xFFFFFFFFFFFFFFFF)|BUTTON_OK %1|"},
             {"{", "alert on 1: ALERT_TITLE_COMMS %1|ALERT_ERROR_COMMS %1|BUTTON_OK %1|"},
             {R"({"success":true})", "menu; "}}) {
        EXPECT_EQ(refresh(statusAnswer(rounds % 2 == 0 ? 3 : 7), Service), "") << "one that failed leaves no mark";
        refresh(statusAnswer(1), Moved);
        link.answerToOthers = answer;
        model->performAction(fv2AppCommand::ProxySync_ORM, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_sync") << "at once";
        const auto inFlight = std::exchange(dispatch.workers, {});
        model->syncProxyAsync(User, true);
        EXPECT_TRUE(model->state().syncORMActive) << "as it was before";
        refresh(statusAnswer(1), Moved);
        model->syncProxyAsync(User, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_warning") << "as it was before";
        const std::size_t updates = interface.icons.size();
        const long refreshes = asked();
        inFlight.at(0)();
        EXPECT_EQ(settled(), calls) << answer;
        EXPECT_EQ(asked(proxySyncRequest(501, "t1")), ++rounds) << "not in flight, not dropped";
        EXPECT_FALSE(model->state().syncORMActive);
        EXPECT_EQ(interface.icons.size() > updates, rounds < 3) << "no notification follows a failure";
        later(25ms);
        EXPECT_EQ(asked() - refreshes, rounds < 3 ? 1 : 0) << "for a new token";
    }
    later(10min);
    EXPECT_EQ(refresh(statusAnswer(6), Moved), "") << "neither is the service's";
    EXPECT_EQ(refresh(statusAnswer(3), Service), "status page; open 2 for user; ");
    EXPECT_EQ(refresh(statusAnswer(7), Service), "") << "only the first";
}

TEST_F(Model, SynchronisesByItselfOnceInTenMinutesWhileThatFails) {
    const auto synchronisations = [this] { return asked(proxySyncRequest(501, "t1")); };
    link.answerToOthers = R"({"result":true})";
    const std::string failed = statusAnswer(6, R"(,"sync_ok":0)");
    refresh(failed, Startup);
    for (int minute = 0; minute < 30; ++minute) {
        refresh(statusAnswer(6, R"(,"sync_active":1)"), Service);
        refresh(failed, Service);
        later(1min);
    }
    EXPECT_EQ(synchronisations(), 1 + 3);
    model->performAction(fv2AppCommand::ProxySync_ORM, true);
    settled();
    EXPECT_EQ(synchronisations(), 5) << "the user's own";
    refresh(statusAnswer(6, R"(,"sync_active":1)"), Service);
    refresh(failed, Service);
    interface.open = fv2Window::Main;
    later(11min);
    EXPECT_EQ(synchronisations(), 5) << "the user sees it";
}

TEST_F(Model, KeepsWhatNobodyAskedForFromPassingForTheUsers) {
    link.answerToOthers = R"({"result":true})";
    refresh(statusAnswer(6, R"(,"sync_ok":0)"), Startup); // it synchronises by itself
    EXPECT_EQ(refresh(statusAnswer(3), Service), "open 2; ");
    interface.open = fv2Window::None;
    refresh("", Service); // it tries again by itself
    link.status = statusAnswer(3);
    EXPECT_EQ(later(25ms), "open 2; ");
}

TEST_F(Model, LetsThePasswordWindowComeBackWhenThePolicySaysUnlessItIsNoLongerWanted) {
    struct Case {
        std::int64_t state;
        std::string policy;
        std::chrono::minutes comesBack; //!< 0: never
    };
    for (const auto& [state, policy, comesBack] :
         std::vector<Case>{{3, R"({"postponecredentialmins":2})", 2min},
                           {7, R"({"postponecredentialmins":2})", 2min},
                           {3, "{}", 60min},
                           {3, R"({"postponecredentialmins":0})", 0min},
                           {3, R"({"postponecredentialmins":-5})", 0min},
                           {7, R"({"postponecredentialmins":9223372036854775807})", 365 * 24h / 1min * 1min}}) {
        SCOPED_TRACE(policy + std::to_string(state));
        const std::string kind = state == 3 ? "2" : "3";
        const fv2Window window = state == 3 ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt;
        refresh(statusAnswer(6), Moved);
        interface.open = fv2Window::None;
        const std::string answer = R"({"result":true,"error_code":0,"policy":)" + policy + R"(,"status":{"state":)" +
                                   std::to_string(state) + "}}";
        EXPECT_EQ(refresh(answer, Startup), "open " + kind + "; ");
        model->doAlert(window, 0, state == 3 ? fv2Alert::PostponeEncWarning : fv2Alert::PostponeDecWarning);
        EXPECT_EQ(settled(), "alert on " + kind + ": ALERT_TITLE_PASSWORD_WARNING %1|ALERT_WARNING_PASSWORD_POSTPONE_" +
                                 (state == 3 ? "ENC" : "DEC") + " %1|BUTTON_OK %1|BUTTON_CANCEL %1|" +
                                 (comesBack == 0min ? "" : "ALERT_ASKED_AGAIN in " + std::to_string(comesBack / 1min)));
        interface.chooseFirstButton();
        EXPECT_EQ(settled(), "postpone " + kind);
        interface.open = fv2Window::None;
        interface.chooseFirstButton();
        EXPECT_EQ(settled(), "") << "its window has gone";
        model->postponePasswordDialog(state == 3);
        if (comesBack == 0min) {
            EXPECT_EQ(later(48h), "");
            continue;
        }
        later(comesBack / 2);
        model->postponePasswordDialog(state == 3);
        refresh("", Service);
        refresh(statusAnswer(0), Service);
        EXPECT_EQ(refresh(answer, Service) + later(comesBack - 1min), "") << "from the last time on, whatever comes";
        EXPECT_EQ(later(1min), "open " + kind + "; ");
        EXPECT_EQ(later(2 * comesBack), "") << "once";
        interface.open = fv2Window::None;
        model->postponePasswordDialog(state == 3);
        refresh(statusAnswer(5), Moved);
        EXPECT_EQ(later(2 * comesBack), "") << "no longer wanted";
        model->postponePasswordDialog(state == 3);
        refresh(statusAnswer(5), Moved);
        EXPECT_EQ(refresh(answer, Service), "open " + kind + "; ") << "another wish";
    }
}

TEST_F(Model, LooksEveryMinuteForAnOpeningForAPromptThatIsDue) {
    const std::vector<std::function<void(bool)>> obstacles{
        [this](bool there) { interface.silence = there; },
        [this](bool there) { interface.open = there ? fv2Window::Main : fv2Window::None; },
        [this](bool there) { refresh(there ? "" : statusAnswer(3), Moved); },
        [this](bool there) {
            there ? model->unsubscribeFromNotifications() : model->syncCommsAsync(false, Moved, false);
        }};
    interface.open = fv2Window::Main;
    EXPECT_EQ(refresh(statusAnswer(3), Startup), "open 2; ") << "in vain";
    interface.open = fv2Window::None;
    EXPECT_EQ(later(5min), "") << "the user has read of it";
    refresh(statusAnswer(6), Moved);
    interface.silence = true;
    EXPECT_EQ(refresh(statusAnswer(3), Startup), "open 2; ") << "in vain";
    interface.silence = false;
    EXPECT_EQ(later(1min), "open 2; ");
    for (const auto& obstacle : obstacles) {
        interface.open = fv2Window::None;
        model->postponePasswordDialog(true);
        obstacle(true);
        later(65min);
        EXPECT_NE(interface.open, fv2Window::Password_Encrypt);
        obstacle(false);
        settled();
        EXPECT_EQ(later(1min), "open 2; ");
        EXPECT_EQ(later(5min), "");
    }
}

TEST_F(Model, HandsOverAPasswordThatIsRightAndLeavesNoneBehind) {
    auto dialog = std::make_shared<int>(0);
    std::string told;
    const auto submit = [&](std::string_view password) {
        told.clear();
        model->submitPassword("someone", SecretText(password),
                              {dialog, [&told] { told += "right; "; },
                               [&told](const CommandResult& result) {
                                   told += std::to_string(static_cast<int>(result.alert)) + ' ' +
                                           std::to_string(result.errorCode);
                               }});
    };
    const auto hand = [&](std::string_view password) {
        submit(password);
        settled();
        EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1) << "the password is still somewhere";
        return told;
    };
    submit("p\"ä");
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 0);
    submit("too early");
    EXPECT_EQ(told, "7 0") << "each check may keep a worker for ever";
    dialog = std::make_shared<int>(0);
    settled();
    EXPECT_TRUE(link.asked.empty()) << "nobody waits for it any more";
    EXPECT_EQ(hand("wrong"), "2 0");
    EXPECT_EQ(hand("unreadable"), "7 0");
    link.status = statusAnswer(3);
    EXPECT_EQ(hand("p\"ä"), "right; 1 0");
    const std::vector<std::string> askedForAToken{getTokenRequest(501), getStatusRequest(501)};
    EXPECT_EQ(link.asked, askedForAToken) << "without one nothing is sent";
    int handed = 0;
    for (const auto& [answer, outcome] :
         std::vector<std::pair<std::string, std::string>>{{R"({"result":true})", "right; 0 0"},
                                                          {R"({"result":false,"error_code":7})", "right; 3 7"},
                                                          {"{}", "right; 3 0"},
                                                          {"", "right; 1 0"}}) {
        link.answerToOthers = answer;
        const auto refreshes = asked();
        EXPECT_EQ(hand("p\"ä"), outcome) << answer;
        EXPECT_EQ(asked(R"({"command":"set_user_credentials","uid":501,"token":"t1",)"
                        R"("parameters":{"username":"someone","password":"p\"ä"}})"),
                  ++handed);
        later(25ms);
        EXPECT_EQ(asked() - refreshes, outcome.starts_with("right; 3") ? 1 : 0) << "for a new token";
    }
    const auto refreshes = asked();
    later(1min);
    EXPECT_EQ(asked() - refreshes, 1) << "the last one was not answered";
}

TEST_F(Model, NeverPutsAnOlderTokenOrStatusOverANewerOne) {
    interface.open = fv2Window::Main;
    struct Case {
        std::string held;
        std::string older;
        std::string newer;
    };
    const std::string good = statusAnswer(6);
    for (const auto& [held, older, newer] : std::vector<Case>{{"get_token", "", good},
                                                              {"get_status", statusAnswer(1), good},
                                                              {"get_status", R"({"error_code":1})", good},
                                                              {"get_status", good, ""}}) {
        later(25ms);
        model->syncCommsAsync(false, User, true);
        model->syncCommsAsync(false, Moved, false);
        const auto jobs = std::exchange(dispatch.workers, {});
        link.heldUp = held;
        link.token = "older";
        link.status = older;
        link.meanwhile = [&, next = newer] {
            link.token = "newer";
            link.status = next;
            jobs.at(1)();
        };
        jobs.at(0)();
        EXPECT_EQ(settled(), "") << "no alert of what has been refuted";
        EXPECT_EQ(model->state().commsToken + " " + interface.icons.back(), "newer orm_menu_icon") << held << older;
    }
}

TEST_F(Model, KnowsATokenBeforeTheStatusIsAnsweredAndLosesItOnlyToAnAnswer) {
    link.heldUp = "get_status";
    link.meanwhile = [this] {
        dispatch.main.drain();
        EXPECT_EQ(model->state().commsToken, "t1");
    };
    refresh(statusAnswer(6), Startup);
    link.token.clear();
    refresh(statusAnswer(6), Moved);
    EXPECT_EQ(model->state().commsToken, "");
    const auto refreshes = asked();
    link.token = "t2";
    later(1min);
    EXPECT_EQ(asked() - refreshes, 1) << "without one no notification comes";
    EXPECT_EQ(model->state().commsToken, "t2");
}

TEST_F(Model, MergesTheRefreshesOfEachSourceAndLetsOnlyNotificationsOvertakeOneThatHangs) {
    for (const auto& [source, most] : {std::pair(Service, 2), {Moved, 1}, {User, 1}})
        for (int request = 0; request < 9; ++request, timers.advance(25ms)) {
            model->syncCommsAsync(true, source, true);
            EXPECT_EQ(dispatch.workers.size(), std::min(request + 1, most)) << caseName(source);
            if (request == 8)
                dispatch.workers.clear();
        }
}

TEST_F(Model, AsksEveryMinuteWhileNoNotificationCanBeExpectedAndOtherwiseNowAndThen) {
    const auto asksIn = [&](std::chrono::milliseconds time) {
        const auto before = asked();
        later(time);
        return asked() - before;
    };
    refresh("", Moved);
    EXPECT_EQ(asksIn(59'999ms), 0);
    EXPECT_EQ(asksIn(1ms), 1);
    refresh(statusAnswer(0), Moved);
    EXPECT_EQ(asksIn(9min), 0) << "reached, so its notifications come";
    EXPECT_EQ(asksIn(1min), 1);
    refresh(statusAnswer(5), Moved);
    EXPECT_EQ(asksIn(59s), 0) << "progress that nobody watches";
    EXPECT_EQ(asksIn(1s), 1);
    model->setWatched(true);
    EXPECT_EQ(asksIn(25ms), 1) << "watched from here on";
    EXPECT_EQ(asksIn(4999ms), 0);
    EXPECT_EQ(asksIn(1ms), 1);
    model->setWatched(false);
    refresh(statusAnswer(6), Moved);
    EXPECT_EQ(asksIn(9min), 0) << "the work is done";
    EXPECT_EQ(asksIn(1min), 1);
    for (const bool leaves : {false, true}) {
        std::filesystem::create_directory(path);
        model = make(dispatch, link);
        model->runBackgroundThread();
        refresh(statusAnswer(6), Moved);
        long asks = 0;
        for (int halfMinute = 0; halfMinute < 8; ++halfMinute, ::usleep(40'000)) // in which it tries its path again
            asks += asksIn(30s);
        EXPECT_GE(asks, 3);
        if (leaves) {
            link.status = statusAnswer(6, R"(,"sync_ok":0)");
            model->syncCommsAsync(true, Service, false);
            model->syncProxyAsync(User, false);
            model->unsubscribeFromNotifications();
            EXPECT_EQ(asksIn(20min), 1) << "the user's session is not in front, and what fails is not tried again";
            EXPECT_EQ(asked(proxySyncRequest(501, "t1")), 1);
        }
        std::filesystem::remove(path);
        EXPECT_TRUE(connectTo(path));
        model->stopBackgroundThread();
        EXPECT_EQ(asksIn(25ms), leaves ? 0 : 1) << "for what was missed";
    }
}

TEST_F(Model, AnswersEachMessageAndTellsMainOnceOfThoseThatWait) {
    link.status = statusAnswer(6);
    model->runBackgroundThread();
    EXPECT_TRUE(connectTo(path));
    for (int round = 1; round <= 2; ++round) {
        const int posted = dispatch.posted;
        for (const std::string message :
             {"{}", R"({ "command": "get_status" })", R"({ "command": "show_ui" })", R"({ "command": "show_ui" })"})
            EXPECT_EQ(exchange(message), R"("{ "result": 0 }")");
        EXPECT_EQ(exchange("garbage"), R"("{ "result": 1 }")");
        EXPECT_EQ(dispatch.posted - posted, 3) << "one refresh has begun, one is wanted, and the window";
        EXPECT_EQ(later(25ms), "show main window; ");
        EXPECT_EQ(later(25ms), "");
        EXPECT_EQ(asked(), 2 * round);
    }
    model->stopBackgroundThread();
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
