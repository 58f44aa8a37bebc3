// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"
#include "comms/TestEndpoint.h"
#include "support/LogScope.h"
#include "support/RawSocket.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace fv2::test {
namespace {

using Calls = std::vector<std::string>;

const std::string kGetToken = R"({ "command": "get_token", "uid" : 501  })";
const std::string kGetStatus = R"({ "command": "get_status" , "uid" : 501 })";

std::string withToken(const std::string& command, const std::string& token) {
    return "{\n    \"command\": \"" + command + "\",\n    \"uid\" : 501,\n    \"token\": \"" + token + "\"\n}";
}

class Model : public testing::Test {
protected:
    Model() {
        interface.updateSemaphore = &model->updateSemaphore();
        model->setAppDelegate(interface);
        model->setWndDelegate(&interface);
        link.status = statusAnswer(6);
    }
    ~Model() override {
        EXPECT_TRUE(model == nullptr || model->updateSemaphore().count() == 1);
        const Calls& calls = interface.calls;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "updated without the semaphore"), 0);
    }

    //! What the windows are asked to do by one refresh that brings `answer`.
    Calls refresh(const std::string& answer, fv2SyncSource source, bool checkAction = true, bool alert = false) {
        link.status = answer;
        timers.advance(25ms);
        model->syncCommsAsync(checkAction, source, alert);
        dispatch.settle();
        EXPECT_FALSE(model->state().isActionRequired);
        return interface.takeCalls();
    }

    //! Runs what the listener posts until `done` holds.
    template <class Done>
    bool pumpUntil(Done done) {
        for (const Deadline deadline(2s); !done(); ::usleep(1000)) {
            if (deadline.passed())
                return false;
            dispatch.settle();
        }
        return true;
    }

    [[nodiscard]] long asked(const std::string& request) const {
        return std::count(link.asked.begin(), link.asked.end(), request);
    }

    MarkedStrings strings;
    HandDispatch dispatch;
    ToldTimers timers;
    ScriptedLink link;
    FakeInterface interface;
    TemporaryFolder folder;
    const std::string path = folder / "agent.sock";
    std::unique_ptr<FV2AppStateModel> model = std::make_unique<FV2AppStateModel>(
        FV2AppStateModel::Surroundings{.dispatch = dispatch,
                                       .timers = timers,
                                       .service = link,
                                       .strings = strings,
                                       .mediumDate = [](std::int64_t) { return "today"; },
                                       .computerName = "desk",
                                       .makeAppSocket = [this] { return std::make_unique<TestEndpoint>(path); }},
        501);
};

TEST_F(Model, AsksForTokenThenStatusAndShowsWhatItLearned) {
    EXPECT_EQ(model->state().overallState, fv2StatusStateType::Red);
    EXPECT_EQ(model->state().computerName, "desk");
    model->syncCommsAsync(true, fv2SyncSource::Startup, false);
    EXPECT_TRUE(link.asked.empty()) << "asked on the main thread";
    link.status = statusAnswer(3, R"(,"version":"1.2")");
    dispatch.settle();
    EXPECT_EQ(link.asked, (Calls{kGetToken, kGetStatus}));
    EXPECT_EQ(model->state().commsToken, "t1");
    EXPECT_EQ(model->state().version, "1.2");
    EXPECT_EQ(interface.icon, "orm_menu_icon_alert Red");
    EXPECT_EQ(interface.mainUpdates, 0);
    EXPECT_EQ(interface.takeCalls(), Calls{"open 2"});
    interface.open.insert(fv2Window::Main);
    EXPECT_EQ(refresh(statusAnswer(6), fv2SyncSource::Moved), Calls{});
    EXPECT_EQ(interface.icon, "orm_menu_icon Green");
    EXPECT_EQ(interface.mainUpdates, 1);
}

TEST_F(Model, ActsOnAChangedActionWhereTheSourceAllows) {
    using enum fv2SyncSource;
    struct Case {
        fv2SyncSource source;
        Calls closed; //!< expected while the main window is closed
        Calls open;
    };
    const std::vector<Case> table{{None, {}, {}},
                                  {Moved, {}, {}},
                                  {Startup, {"open 3"}, {"open 3"}},
                                  {Service, {"open 3"}, {}},
                                  {User, {"open 3 for user"}, {"status page", "open 3 for user"}}};
    for (const Case& each : table)
        for (const bool open : {false, true}) {
            refresh(statusAnswer(6), Moved);
            if (open)
                interface.open = {fv2Window::Main};
            else
                interface.open.clear();
            SCOPED_TRACE(std::string(caseName(each.source)) + (open ? ", open" : ", closed"));
            if (each.source != Service) {
                EXPECT_EQ(refresh(statusAnswer(3), each.source, false), Calls{});
            }
            EXPECT_EQ(refresh(statusAnswer(7), each.source), open ? each.open : each.closed);
            EXPECT_EQ(refresh(statusAnswer(7), User), Calls{}) << "once for each change, carried out or not";
        }
}

TEST_F(Model, CarriesOutEachAction) {
    using enum fv2AppCommand;
    interface.open = {fv2Window::Main};
    const std::string refused = R"({"result":false,"error_code":9})";
    refresh(refused, fv2SyncSource::Moved); // this failure's own action is no news from here on
    const std::vector<std::tuple<fv2AppCommand, Calls, Calls>> table{
        {NoAction, {}, {}},
        {Initialising_ORM, {}, {}},
        {EnterEncPassword, {"open 2 for user"}, {}},
        {EnterDecPassword, {"open 3 for user"}, {}},
        {RetryComms, {"alert on 1: 9 1"}, {kGetToken, kGetStatus}},
        {GetStatus, {"alert on 1: 9 1"}, {kGetToken, kGetStatus}},
        {ProxySync_ORM, {"alert on 1: 0 1"}, {withToken("proxy_sync", "t1")}}};
    for (const auto& [command, calls, requests] : table) {
        link.asked.clear();
        model->performAction(command, true);
        dispatch.settle();
        EXPECT_EQ(interface.takeCalls(), calls) << caseName(command);
        EXPECT_EQ(link.asked, requests) << caseName(command);
    }
    EXPECT_TRUE(model->state().syncORMUserInitiated);
    EXPECT_EQ(refresh(statusAnswer(7), fv2SyncSource::Service), (Calls{"status page", "open 3 for user"}));
    model->performAction(ProxySync_ORM, false);
    dispatch.settle();
    EXPECT_FALSE(model->state().syncORMUserInitiated);
    EXPECT_FALSE(model->state().syncORMActive);
}

TEST_F(Model, ShowsAnAlertOnlyWhenAskedForAndOnTheOpenMainWindow) {
    const std::string refused = R"({"result":false,"error_code":255})";
    refresh("", fv2SyncSource::Moved); // the action of a failure is no news from here on
    EXPECT_EQ(refresh(refused, fv2SyncSource::User, true, true), Calls{});
    interface.open = {fv2Window::Password_Encrypt};
    EXPECT_EQ(refresh(refused, fv2SyncSource::User, true, true), Calls{});
    interface.open = {fv2Window::Main};
    EXPECT_EQ(refresh(refused, fv2SyncSource::User, true, false), Calls{});
    EXPECT_EQ(refresh(refused, fv2SyncSource::User, true, true), Calls{"alert on 1: 255 1"});
    EXPECT_EQ(refresh("", fv2SyncSource::Moved, false, true), Calls{"alert on 1: 0 1"});
    EXPECT_EQ(refresh(statusAnswer(6), fv2SyncSource::User, true, true), Calls{});
}

TEST_F(Model, TakesTheNotificationAfterAUsersSynchronisationAsTheUsersOwn) {
    interface.open = {fv2Window::Main};
    refresh(statusAnswer(7), fv2SyncSource::Moved);
    model->syncProxyAsync(fv2SyncSource::User, false);
    EXPECT_EQ(model->state().syncORMUserInitiatedAction, fv2AppCommand::EnterDecPassword);
    EXPECT_EQ(refresh(statusAnswer(6), fv2SyncSource::Moved), Calls{}) << "not the service's";
    EXPECT_EQ(refresh(statusAnswer(3), fv2SyncSource::Service), (Calls{"status page", "open 2 for user"}));
    EXPECT_EQ(refresh(statusAnswer(7), fv2SyncSource::Service), Calls{}) << "only the first";
}

TEST_F(Model, SynchronisesOneAtATimeAndDropsWhatOverlaps) {
    const LogScope log(FV2LoggingLevel::release);
    const auto warnings = [&log] {
        const auto lines = log.messages();
        return std::count(lines.begin(), lines.end(), "WARNING: ignored overlapped sync attempt (proxy)");
    };
    const std::string request = withToken("proxy_sync", "t1");
    interface.open = {fv2Window::Main};
    refresh(statusAnswer(1), fv2SyncSource::Moved);
    const std::vector<std::pair<std::string, Calls>> table{{R"({"result":true,"error_code":0})", {}},
                                                           {R"({"success":true})", {}},
                                                           {R"({"result":false,"error_code":4})", {"alert on 1: 4 6"}},
                                                           {R"({"error_code":5})", {"alert on 1: 5 6"}},
                                                           {"{", {"alert on 1: 0 1"}},
                                                           {"", {"alert on 1: 0 1"}}};
    int rounds = 0;
    for (const auto& [answer, calls] : table) {
        link.answerToOthers = answer;
        const int updates = interface.mainUpdates;
        model->syncProxyAsync(fv2SyncSource::User, true);
        EXPECT_EQ(interface.icon, "orm_menu_icon_sync Yellow") << "at once";
        EXPECT_EQ(interface.mainUpdates, updates + 1);
        const auto inFlight = dispatch.takeWorker();
        model->syncProxyAsync(fv2SyncSource::User, true);
        EXPECT_TRUE(model->state().syncORMActive) << "as it was before";
        EXPECT_EQ(refresh(statusAnswer(1), fv2SyncSource::Moved), Calls{});
        model->syncProxyAsync(fv2SyncSource::User, true);
        EXPECT_FALSE(model->state().syncORMActive) << "as it was before";
        EXPECT_EQ(interface.icon, "orm_menu_icon_warning Yellow");
        HandDispatch::run(inFlight);
        dispatch.settle();
        EXPECT_EQ(asked(request), ++rounds) << "not in flight, not dropped";
        EXPECT_EQ(warnings(), 2 * rounds);
        EXPECT_FALSE(model->state().syncORMActive);
        EXPECT_EQ(interface.takeCalls(), calls) << answer;
    }
}

TEST_F(Model, UnsubscribesWithItsTokenAndAtExitAsTheLastWord) {
    model->syncCommsAsync(true, fv2SyncSource::Startup, false);
    dispatch.settle();
    link.asked.clear();
    model->unsubscribeFromNotifications();
    dispatch.settle();
    model->unsubscribeAtExit();
    dispatch.settle();
    const std::string request = withToken("unsubscribe", "t1");
    EXPECT_EQ(link.asked, (Calls{request, "cancel", "farewell " + request}));
}

TEST_F(Model, NeverPutsAnOlderAnswerOverANewerOne) {
    interface.open = {fv2Window::Main};
    refresh("", fv2SyncSource::Moved);
    for (int refreshes = 0; refreshes < 2; ++refreshes)
        model->syncCommsAsync(true, fv2SyncSource::User, true);
    const auto jobs = dispatch.takeWorker();
    link.token = "older";
    link.status = R"({"result":false,"error_code":1})";
    jobs.at(1)();
    link.token = "newer";
    link.status = statusAnswer(12, R"(,"version":"newer")");
    jobs.at(0)();
    auto answers = dispatch.takeMain();
    std::reverse(answers.begin(), answers.end());
    HandDispatch::run(answers);
    EXPECT_EQ(model->state().commsToken, "newer");
    EXPECT_EQ(model->state().version, "newer");
    EXPECT_EQ(model->state().statusMessageList.size(), 1U);
    EXPECT_EQ(interface.icon, "orm_menu_icon_alert Red");
    EXPECT_EQ(interface.takeCalls(), Calls{"alert on 1: 1 1"}) << "its failure is told all the same";
}

TEST_F(Model, NeverPutsAnOlderTokenOverANewerOne) {
    for (int refreshes = 0; refreshes < 2; ++refreshes)
        model->syncCommsAsync(true, fv2SyncSource::User, false);
    const auto jobs = dispatch.takeWorker();
    link.token = "older";
    link.afterToken = [&] {
        link.token = "newer";
        jobs.at(1)();
    };
    jobs.at(0)();
    dispatch.settle();
    EXPECT_EQ(model->state().commsToken, "newer");
}

TEST_F(Model, AsksAgainEveryMinuteWhileTheServiceCannotBeReached) {
    interface.open = {fv2Window::Main};
    refresh("", fv2SyncSource::Moved);
    const auto asksIn = [&](std::chrono::milliseconds time) {
        const auto before = asked(kGetStatus);
        timers.advance(time);
        dispatch.settle();
        return asked(kGetStatus) - before;
    };
    EXPECT_EQ(asksIn(59'999ms), 0);
    EXPECT_EQ(asksIn(1ms), 1);
    EXPECT_EQ(asksIn(59s), 0);
    refresh("", fv2SyncSource::Moved);
    EXPECT_EQ(asksIn(1s), 1) << "a refresh between does not put it off";
    refresh(statusAnswer(0), fv2SyncSource::Moved);
    EXPECT_EQ(asksIn(1h), 0) << "reached, so its notifications come";
}

TEST_F(Model, AsksEveryMinuteWhileItsPathIsTaken) {
    std::filesystem::create_directory(path);
    refresh(statusAnswer(6), fv2SyncSource::Moved);
    model->runBackgroundThread();
    EXPECT_TRUE(pumpUntil([&] { return timers.pending() == 1; }));
    for (const int refreshes : {2, 3, 4}) {
        timers.advance(60s);
        dispatch.settle();
        EXPECT_EQ(asked(kGetStatus), refreshes);
    }
    model->stopBackgroundThread();
}

TEST_F(Model, AnswersEachNotificationAndMergesThoseThatWait) {
    const auto exchange = [this](std::string_view text) {
        const UniqueFd peer = connectTo(path);
        sendAll(peer, text);
        return receiveAll(peer);
    };
    model->runBackgroundThread();
    for (int round = 0; round < 10; ++round)
        EXPECT_EQ(exchange(round % 2 == 0 ? "{}" : "garbage"),
                  round % 2 == 0 ? R"("{ "result": 0 }")" : R"("{ "result": 1 }")");
    EXPECT_EQ(exchange(R"({ "command": "show_ui" })"), R"("{ "result": 0 }")");
    EXPECT_TRUE(pumpUntil([&] { return !interface.calls.empty(); }));
    EXPECT_EQ(interface.takeCalls(), Calls{"show main window"});
    EXPECT_EQ(asked(kGetStatus), 1);
    EXPECT_EQ(timers.pending(), 0U) << "no second one waits";
    timers.advance(25ms);
    exchange("{}");
    EXPECT_TRUE(pumpUntil([&] { return asked(kGetStatus) == 2; }));
    model->stopBackgroundThread();
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Model, LeavesNothingBehindThatCouldStillRun) {
    refresh("", fv2SyncSource::Moved);
    EXPECT_EQ(timers.pending(), 1U);
    model->syncCommsAsync(true, fv2SyncSource::User, true);
    HandDispatch::run(dispatch.takeWorker()); // its answer waits for the main thread
    model->syncCommsAsync(true, fv2SyncSource::Service, false);
    model->syncProxyAsync(fv2SyncSource::User, true);
    model->runBackgroundThread();
    const UniqueFd peer = connectTo(path);
    sendAll(peer, R"({ "command": "show_ui" })");
    EXPECT_NE(receiveAll(peer), "");
    const int shows = interface.shows;
    model.reset();
    EXPECT_EQ(timers.pending(), 0U);
    dispatch.settle();
    EXPECT_EQ(asked(withToken("proxy_sync", "t1")), 1) << "nothing was under way";
    EXPECT_EQ(interface.shows, shows);
    EXPECT_EQ(interface.takeCalls(), Calls{});
    EXPECT_FALSE(std::filesystem::exists(path));
}

} // namespace
} // namespace fv2::test
