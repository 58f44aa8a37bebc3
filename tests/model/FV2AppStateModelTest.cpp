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
            EXPECT_EQ(settled(), window == fv2Window::Main
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
             {R"({"success":true})", ""},
             {R"({"error_code":-1})", "alert on 1: ALERT_ERROR_PROXYSYNC_GENERIC_TITLE %1|"
                                      "ALERT_ERROR_PROXYSYNC_PROBLEM %1 (0xFFFFFFFFFFFFFFFF)|BUTTON_OK %1|"},
             {"{", "alert on 1: ALERT_TITLE_COMMS %1|ALERT_ERROR_COMMS %1|BUTTON_OK %1|"}}) {
        link.answerToOthers = answer;
        model->performAction(fv2AppCommand::ProxySync_ORM, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_sync") << "at once";
        const auto inFlight = std::exchange(dispatch.workers, {});
        model->syncProxyAsync(User, true);
        EXPECT_TRUE(model->state().syncORMActive) << "as it was before";
        refresh(statusAnswer(1), Moved);
        model->syncProxyAsync(User, true);
        EXPECT_EQ(interface.icons.back(), "orm_menu_icon_warning") << "as it was before";
        const int updates = interface.mainUpdates;
        inFlight.at(0)();
        EXPECT_EQ(settled(), calls) << answer;
        EXPECT_EQ(asked(proxySyncRequest(501, "t1")), ++rounds) << "not in flight, not dropped";
        EXPECT_FALSE(model->state().syncORMActive);
        EXPECT_EQ(interface.mainUpdates - updates, calls.empty() ? 0 : 1) << "no notification follows a failure";
    }
    EXPECT_EQ(refresh(statusAnswer(6), Moved), "") << "not the service's";
    EXPECT_EQ(refresh(statusAnswer(3), Service), "status page; open 2 for user; ");
    EXPECT_EQ(refresh(statusAnswer(7), Service), "") << "only the first";
}

TEST_F(Model, LetsThePasswordWindowComeBackWhenThePolicySaysUnlessItIsNoLongerWanted) {
    struct Case {
        std::int64_t state;
        std::string policy;
        std::chrono::minutes comesBack; //!< 0: never
    };
    for (const auto& [state, policy, comesBack] :
         std::vector<Case>{{3, R"({"postponecredentialmins":1})", 1min},
                           {7, R"({"postponecredentialmins":1})", 1min},
                           {3, "{}", 60min},
                           {3, R"({"postponecredentialmins":0})", 0min},
                           {3, R"({"postponecredentialmins":-5})", 0min},
                           {7, R"({"postponecredentialmins":9223372036854775807})", 365 * 24h / 1min * 1min}}) {
        SCOPED_TRACE(policy + std::to_string(state));
        const std::string kind = state == 3 ? "2" : "3";
        refresh(statusAnswer(6), Moved);
        interface.open = state == 3 ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt;
        const std::string answer = R"({"result":true,"error_code":0,"policy":)" + policy + R"(,"status":{"state":)" +
                                   std::to_string(state) + "}}";
        EXPECT_EQ(refresh(answer, Startup), "open " + kind + "; ");
        model->doAlert(interface.open, 0, state == 3 ? fv2Alert::PostponeEncWarning : fv2Alert::PostponeDecWarning);
        EXPECT_EQ(settled(), "alert on " + kind + ": ALERT_TITLE_PASSWORD_WARNING %1|ALERT_WARNING_PASSWORD_POSTPONE_" +
                                 (state == 3 ? "ENC" : "DEC") + " %1|BUTTON_OK %1|BUTTON_CANCEL %1|");
        interface.chooseFirstButton();
        EXPECT_EQ(settled(), "postpone " + kind);
        const auto waits = [&](std::chrono::milliseconds time) {
            timers.advance(time);
            link.status = answer;
            return settled();
        };
        model->postponePasswordDialog(state == 3);
        if (comesBack == 0min) {
            EXPECT_EQ(waits(48h), "");
            continue;
        }
        waits(comesBack / 2);
        model->postponePasswordDialog(state == 3);
        EXPECT_EQ(waits(comesBack - 1ms), "") << "from the last time on";
        EXPECT_EQ(waits(1ms), "open " + kind + "; ");
        EXPECT_EQ(waits(2 * comesBack), "") << "once";
        model->postponePasswordDialog(state == 3);
        refresh(statusAnswer(5), Moved);
        link.status = statusAnswer(5);
        timers.advance(comesBack);
        EXPECT_EQ(settled(), "") << "no longer wanted";
    }
}

TEST_F(Model, HandsOverAPasswordThatIsRightAndLeavesNoneBehind) {
    const auto secret = [](const char* text) { return std::make_shared<SecretText>(std::string_view(text)); };
    std::map<std::string, fv2PasswordCheck> checked;
    const auto verify = [&](const char* text) {
        model->verifyPassword("someone", secret(text),
                              [&checked, text](fv2PasswordCheck result) { checked[text] = result; });
    };
    verify("right");
    EXPECT_TRUE(checked.empty()) << "not on this thread";
    verify("too early");
    EXPECT_EQ(checked["too early"], fv2PasswordCheck::CannotCheck) << "each check may keep a worker for ever";
    settled();
    verify("wrong");
    settled();
    EXPECT_EQ(checked["right"], fv2PasswordCheck::Right);
    EXPECT_EQ(checked["wrong"], fv2PasswordCheck::Wrong);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    const auto password = secret("p\"ä");
    std::optional<CommandResult> result;
    const auto hand = [&] {
        result.reset();
        model->setUserCredentials("someone", password, [&result](const CommandResult& told) { result = told; });
        settled();
        EXPECT_TRUE(password->empty());
        return *result;
    };
    EXPECT_EQ(hand(), (CommandResult{false, 0, fv2Alert::BadComms}));
    EXPECT_EQ(link.asked.size(), 0U) << "without a token nothing is sent";
    refresh(statusAnswer(3), Moved);
    for (const auto& [answer, expected] : std::vector<std::pair<std::string, CommandResult>>{
             {R"({"result":true})", {true, 0, fv2Alert::NoError}},
             {R"({"result":false,"error_code":7})", {false, 7, fv2Alert::FailPassword}},
             {"{}", {false, 0, fv2Alert::FailPassword}},
             {"", {false, 0, fv2Alert::BadComms}}}) {
        password->append("p\"ä");
        EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 0);
        link.answerToOthers = answer;
        EXPECT_EQ(hand(), expected) << answer;
        EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
        EXPECT_EQ(link.asked.back(), R"({"command":"set_user_credentials","uid":501,"token":"t1",)"
                                     R"("parameters":{"username":"someone","password":"p\"ä"}})");
    }
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
