// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Console.h"
#include "simulation/Settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sstream>

namespace fv2::service::test {

namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

Lines split(const std::string& text) {
    Lines parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, '|');)
        parts.push_back(part);
    return parts;
}

//! The simulation and its operator's lines, in a time that passes only when told.
struct SimulationTest : testing::Test {
    Simulation::TimePoint now{};
    Lines lines;
    int changes = 0;
    bool quit = false;
    const Report report = [this](std::string_view line) { lines.emplace_back(line); };
    Simulation simulation{{.now = [this] { return now; },
                           .epochSeconds = [] { return std::int64_t{1'700'000'000}; },
                           .report = report,
                           .changed = [this] { ++changes; },
                           .quit = [this] { quit = true; }}};
    Commands commands{simulation,
                      {.scenarioFolders = {SCENARIOS},
                       .report = report,
                       .notify = [this] { ++changes; },
                       .quit = [this] { quit = true; }}};

    void play(const std::string& text) {
        auto read = readScenario("test", text);
        ASSERT_TRUE(std::holds_alternative<Scenario>(read)) << std::get<std::string>(read);
        simulation.play(std::get<Scenario>(std::move(read)));
    }

    //! Moves from one due time to the next, as the loop does; false when one comes that is not later, again and again.
    bool pass(std::chrono::milliseconds time) {
        const auto end = now + time;
        int stuck = 0;
        for (auto due = simulation.nextTime(); due && *due <= end; due = simulation.nextTime()) {
            stuck = *due > now ? 0 : stuck + 1;
            if (stuck > 3)
                return false;
            now = std::max(now, *due);
            simulation.advance();
        }
        now = end;
        simulation.advance();
        return true;
    }

    bool reported(std::string_view line) const { return std::ranges::find(lines, line) != lines.end(); }
};

TEST_F(SimulationTest, AnUnderstoodLineIsToldInItsOwnWords) {
    for (const std::string& line :
         split("state -3|progress 40|sync start|sync fail|sync last 12|version 2.0 beta|uuid x|policy postpone 0|"
               "policy postpone none|credentials refuse 17|onsync fail 0.5|onsync refuse 3|fault silent|"
               "fault slow 2.5|fault garbage|fault half|fault close|fault endless|fault error 255|fault none|"
               "credentials accept|onsync ok 1")) {
        lines.clear();
        commands.run("  " + line + " \r");
        EXPECT_EQ(lines, Lines{line});
    }
}

TEST_F(SimulationTest, ALineThatIsNotUnderstoodChangesNothing) {
    const Lines before = describe(simulation.values());
    for (const std::string& line :
         split("state|state x|state 5 6|state 5.5|state 99999999999999999999|progress|sync|sync bad|sync ok 5|"
               "sync last|policy|policy postpone|policy postpone 1 2|policy other 5|credentials|"
               "credentials accept 5|credentials refuse 0|credentials refuse x|onsync maybe|onsync ok -1|"
               "onsync ok nan|onsync refuse 0|fault|fault slow|fault slow -1|fault slow 1e99|fault error 0|"
               "fault silent 3|hunter2|scenario nosuch|scenario|next")) {
        lines.clear();
        commands.run(line);
        EXPECT_EQ(lines.size(), 1U) << line;
        EXPECT_TRUE(lines.at(0).find("hunter2") == std::string::npos);
        EXPECT_EQ(describe(simulation.values()), before) << line;
    }
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(quit);
}

TEST_F(SimulationTest, OnlyWhatAStatusReplyShowsIsAChangeForAgents) {
    commands.run("fault silent");
    commands.run("credentials refuse");
    commands.run("show");
    commands.run("help");
    commands.run("");
    EXPECT_EQ(changes, 0);
    commands.run("state 5");
    commands.run("state 5");
    EXPECT_EQ(changes, 1);
    commands.run("notify");
    EXPECT_EQ(changes, 2);
    commands.run("quit");
    EXPECT_TRUE(quit);
}

TEST_F(SimulationTest, ASynchronisationRunsItsTimeAndEndsAsPlanned) {
    commands.run("onsync fail 3");
    EXPECT_TRUE(simulation.startSync().accepted);
    EXPECT_EQ(changes, 0) << "the reply goes first";
    EXPECT_EQ(simulation.nextTime(), now) << "and then the news";
    EXPECT_TRUE(pass(2'999ms));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(simulation.startSync().accepted);
    EXPECT_TRUE(simulation.status().syncActive);
    EXPECT_TRUE(pass(1ms));
    EXPECT_FALSE(simulation.status().syncActive);
    EXPECT_FALSE(simulation.status().syncOk);
    EXPECT_EQ(simulation.status().syncLast, 0);

    commands.run("onsync ok 1");
    EXPECT_TRUE(simulation.startSync().accepted && pass(1s));
    EXPECT_TRUE(simulation.status().syncOk);
    EXPECT_EQ(simulation.status().syncLast, 1'700'000'000);

    commands.run("onsync refuse 9");
    EXPECT_EQ(simulation.startSync(), (EngineOutcome{false, 9}));
    commands.run("onsync ok");
    for (const std::string state : {"4", "8"}) {
        commands.run("state " + state);
        EXPECT_FALSE(simulation.startSync().accepted);
    }
}

TEST_F(SimulationTest, ARunningSynchronisationDoesNotUndoWhatWasSetSince) {
    EXPECT_TRUE(simulation.startSync().accepted);
    commands.run("sync fail");
    EXPECT_TRUE(pass(1min));
    EXPECT_FALSE(simulation.status().syncOk);

    EXPECT_TRUE(simulation.startSync().accepted);
    play(R"({"steps": [{"set": ["sync start"], "for": 60}]})");
    EXPECT_TRUE(pass(59s));
    EXPECT_TRUE(simulation.status().syncActive);
}

TEST_F(SimulationTest, AStepWaitsForItsEventAlone) {
    play(R"({"set": ["credentials refuse 17"], "steps": [
        {"set": ["state 3"], "until": "credentials"}, {"set": ["state 4"], "until": "sync"},
        {"set": ["state 5"], "until": "next"}, {"set": ["state 6"]}], "quit": true})");
    const auto stateAfter = [this](auto event) {
        event();
        EXPECT_TRUE(pass(1h));
        return simulation.status().state;
    };
    EXPECT_EQ(stateAfter([&] { EXPECT_EQ(simulation.takeCredentials(1, "a", "b"), (EngineOutcome{false, 17})); }), 3);
    commands.run("credentials accept");
    EXPECT_EQ(stateAfter([&] { EXPECT_TRUE(simulation.startSync().accepted); }), 3);
    EXPECT_EQ(stateAfter([&] { EXPECT_TRUE(simulation.takeCredentials(1, "a", "b").accepted); }), 4);
    EXPECT_EQ(stateAfter([&] { EXPECT_FALSE(simulation.startSync().accepted); }), 4);
    EXPECT_EQ(stateAfter([&] { commands.run("next"); }), 5);
    EXPECT_EQ(stateAfter([&] { EXPECT_TRUE(simulation.startSync().accepted); }), 5);
    EXPECT_FALSE(quit);
    EXPECT_EQ(stateAfter([&] { commands.run("next"); }), 6);
    EXPECT_TRUE(quit);
}

TEST_F(SimulationTest, ARampPassesEveryPercentOnceInItsTime) {
    play(R"({"steps": [{"set": ["state 5"], "ramp": [0, 100], "for": 12}, {"set": ["progress 7"], "for": 1}]})");
    EXPECT_TRUE(pass(6s));
    EXPECT_EQ(simulation.status().progress, 50);
    EXPECT_TRUE(pass(5'999ms));
    EXPECT_EQ(simulation.status().progress, 99);
    EXPECT_TRUE(pass(1ms));
    EXPECT_EQ(changes, 102);
    EXPECT_TRUE(reported("progress 100"));
    EXPECT_EQ(simulation.status().progress, 7);

    play(R"({"steps": [{"ramp": [10, 0], "for": 1}]})");
    EXPECT_TRUE(pass(350ms));
    EXPECT_EQ(simulation.status().progress, 7);
    EXPECT_EQ(simulation.status().state, 1) << "a scenario starts from fresh values";
}

TEST_F(SimulationTest, TheConsoleJoinsPiecesOfALineAndOutlivesItsInput) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    const UniqueFd reading(pipe[0]);
    UniqueFd writing(pipe[1]);
    Console console(reading.get(), commands);
    const std::array<PollClient*, 1> clients{&console};
    for (const std::string piece : {"state 5\nsync fail\npro", "gress 4", "0\nuuid last"}) {
        ASSERT_EQ(::write(writing.get(), piece.data(), piece.size()), static_cast<ssize_t>(piece.size()));
        ASSERT_TRUE(pollOnce(clients));
    }
    EXPECT_EQ(lines, (Lines{"state 5", "sync fail", "progress 40"}));
    writing.reset();
    ASSERT_TRUE(pollOnce(clients));
    EXPECT_EQ(lines.back(), "uuid last");

    PollSet set;
    set.wakeBy(Deadline(0ms));
    console.prepare(set);
    ASSERT_TRUE(set.wait());
    EXPECT_EQ(set.ready(reading.get()), 0) << "an end is not waited for again";
}

TEST_F(SimulationTest, ALateWakeUpLosesNoStepAndNoTime) {
    play(R"({"steps": [{"set": ["state 3"], "for": 1}, {"set": ["state 4"], "for": 1, "notify": true}, {"for": 1}]})");
    now += 2'500ms;
    simulation.advance();
    EXPECT_TRUE(reported("state 4"));
    EXPECT_TRUE(reported("scenario test: step 3 of 3"));
    EXPECT_EQ(changes, 2) << "a step that changes something needs no notice of its own";
    EXPECT_TRUE(pass(500ms));
    EXPECT_EQ(lines.back(), "scenario test: done");
}

TEST_F(SimulationTest, EveryShippedScenarioPlaysToItsEndWithinMinutes) {
    int played = 0;
    for (const auto& file : std::filesystem::directory_iterator(SCENARIOS)) {
        const std::string name = file.path().stem();
        lines.clear();
        commands.run("scenario " + name);
        for (int second = 0; second < 180 && !reported("scenario " + name + ": done"); ++second) {
            std::ignore = simulation.takeCredentials(1, "a", "b");
            std::ignore = simulation.startSync();
            ASSERT_TRUE(pass(1s)) << name;
        }
        EXPECT_TRUE(reported("scenario " + name + ": done")) << name;
        EXPECT_EQ(simulation.values().fault, ReplyFault{}) << name;
        ++played;
    }
    EXPECT_GE(played, 4);
}

TEST_F(SimulationTest, EncryptionIsOverSoonAfterThePassword) {
    commands.run("scenario encrypt");
    EXPECT_TRUE(pass(1min));
    EXPECT_EQ(simulation.status().state, 3) << "waits for the password";
    std::ignore = simulation.takeCredentials(1, "a", "b");
    EXPECT_TRUE(pass(30s));
    EXPECT_EQ(simulation.status().state, 6);
}

} // namespace

} // namespace fv2::service::test
