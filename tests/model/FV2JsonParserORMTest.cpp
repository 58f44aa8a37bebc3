// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"

#include <gtest/gtest.h>

#include <limits>

namespace fv2::test {
namespace {

using Rows = std::vector<std::string>;

std::string row(std::string_view command, const std::string& title, const std::string& text, std::string_view type,
                bool percentage = false, bool fromTable = true) {
    const std::string value = percentage ? "<IDUS_ORM_SM_PERCENT_FMT 42>" : "%1";
    return std::string(command) + " | <IDUS_" + title + " %1> | <IDUS_" + text + " " + value + "> | " +
           std::string(type) + (fromTable ? "" : " | sync");
}

Rows rowsOf(const FV2AppState& state) {
    Rows rows;
    for (const FV2StatusMesssageListItem& item : state.statusMessageList) {
        EXPECT_EQ(item.Link, "");
        rows.push_back(std::string(caseName(item.command)) + " | " + item.Title + " | " + item.Text + " | " +
                       std::string(caseName(item.statusType)) + (item.fromAIS ? "" : " | sync"));
    }
    return rows;
}

class Interpretation : public testing::Test {
protected:
    MarkedStrings strings;
    FV2AppState state{strings, 501, ""};
    FV2JsonParserORM parser{
        strings, [](std::int64_t at) { return at < 1'000'000'000'000 ? "at " + std::to_string(at) : std::string(); }};
};

TEST_F(Interpretation, ShowsTheRowsOfEachStateAndOneOfTheSynchronisation) {
    constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    const Rows notEncrypted{row("NoAction", "ORM_SM_NOT_ENCD", "ORM_SM_NOT_ENCD_DESC", "Yellow")};
    const Rows badConfiguration{row("NoAction", "ORM_SM_BADCONFIG", "ORM_SM_BADFCONFIG", "Red")};
    const Rows otherManaged{row("NoAction", "ORM_SM_OTHER_MANAGED", "ORM_SM_OTHER_MANAGED_DESC", "Red")};
    struct Case {
        std::vector<std::int64_t> states;
        Rows rows;
        std::string_view worst;
        bool blocked = false;
    };
    const std::vector<Case> table{
        {{-1}, {row("RetryComms", "ALERT_TITLE_COMMS", "ALERT_ERROR_COMMS", "Red")}, "Red"},
        {{0, 11}, badConfiguration, "Red"},
        {{1, 2}, notEncrypted, "Yellow"},
        {{3}, {row("EnterEncPassword", "ORM_SM_WANT_ENC", "ORM_SM_WANT_ENC_DESC", "Red"), notEncrypted.front()}, "Red"},
        {{4}, {row("Initialising_ORM", "ORM_SM_INIT", "ORM_SM_STARTING_ENC", "Yellow", true)}, "Yellow", true},
        {{5}, {row("NoAction", "ORM_SM_ENCING", "ORM_SM_ENCING_DESC", "Yellow", true)}, "Yellow"},
        {{7}, {row("EnterDecPassword", "ORM_SM_WANT_DEC", "ORM_SM_WANT_DEC_DESC", "Yellow")}, "Yellow"},
        {{8}, {row("Initialising_ORM", "ORM_SM_INIT", "ORM_SM_STARTING_DEC", "Yellow", true)}, "Yellow", true},
        {{9}, {row("NoAction", "ORM_SM_DECING", "ORM_SM_DECING_DESC", "Yellow", true)}, "Yellow"},
        {{12, 13}, otherManaged, "Red"},
        {{6, 10, 14, 99, -2, smallest, largest}, {}, "Green"}};
    const std::vector<std::pair<std::string, Rows>> synchronisations{
        {R"(,"sync_active":0,"sync_ok":1)", {}},
        {R"(,"sync_active":0,"sync_ok":0)",
         {row("ProxySync_ORM", "ORM_SM_SYNC", "ORM_SM_SYNC_ISSUE", "Yellow", false, false)}},
        {R"(,"sync_active":1,"sync_ok":0)",
         {row("NoAction", "ORM_SM_SYNC", "ORM_SM_SYNC_ACTIVE", "Yellow", false, false)}}};
    for (const Case& each : table)
        for (const std::int64_t value : each.states)
            for (const auto& [synchronisation, row] : synchronisations) {
                parser.ParseStatus(statusAnswer(value, R"(,"progress":42)" + synchronisation), state);
                Rows expected = each.rows;
                if (!each.blocked)
                    expected.insert(expected.end(), row.begin(), row.end());
                EXPECT_EQ(rowsOf(state), expected) << value << synchronisation;
                EXPECT_EQ(caseName(state.overallState), expected.empty()        ? "Green"
                                                        : each.worst == "Green" ? "Yellow"
                                                                                : each.worst)
                    << value << synchronisation;
                EXPECT_EQ(state.syncORMBlocked, each.blocked) << value;
                EXPECT_EQ(parser.state(), value == 11 ? 0 : value);
            }
}

TEST_F(Interpretation, TakesFromAnAnswerWhatItTells) {
    const std::string unknown = "<IDUS_UNKNOWN %1>";
    EXPECT_EQ(state.version + state.uuid + state.lastORMSync + state.computerName,
              unknown + unknown + unknown + unknown);
    const std::string nothing = " | ? ? ? | 0% 60 min";
    const std::string whole =
        R"("status":{"state":5,"progress":7,"uuid":"u","version":"v","sync_active":1,"sync_ok":0,"sync_last":9},
           "policy":{"postponecredentialmins":5}})";
    // One object takes all the answers, so that what one leaves behind shows in the next.
    const std::vector<std::pair<std::string, std::string>> table{
        {R"({"result":true,"error_code":0,)" + whole, "1 0 0 | 5 active 1 ok 0 enabled 1 | v u at 9 | 7% 5 min"},
        {"", "0 0 1 | -1 active 0 ok 1 enabled 0" + nothing},
        {R"({"result":true,"error_code":7,)" + whole, "1 7 0 | -1 active 1 ok 0 enabled 0 | v u at 9 | 7% 5 min"},
        {R"({"result":false,"error_code":0,)" + whole, "0 0 1 | 5 active 1 ok 0 enabled 1 | v u at 9 | 7% 5 min"},
        {R"({"result":true,)" + whole, "1 0 0 | -1 active 1 ok 0 enabled 0 | v u at 9 | 7% 5 min"},
        {R"({"error_code":-1})", "0 18446744073709551615 1 | -1 active 0 ok 1 enabled 0" + nothing},
        {R"({"result":true,"error_code":0})", "1 0 0 | 0 active 0 ok 1 enabled 0" + nothing},
        {R"({"success":true,"error_code":0,"status":{},"policy":{}})", "1 0 0 | 0 active 0 ok 1 enabled 0" + nothing},
        {R"({"result":true,"error_code":0,"status":7,"policy":{"postponecredentialmins":5}})",
         "1 0 0 | -1 active 0 ok 1 enabled 0" + nothing},
        {R"({"result":true,"error_code":0,"status":{"state":"5"},"error")",
         "0 0 1 | -1 active 0 ok 1 enabled 0" + nothing},
        {statusAnswer(6, R"(,"sync_active":2,"sync_ok":2,"sync_last":0,"version":"","uuid":"")"),
         "1 0 0 | 6 active 0 ok 0 enabled 1" + nothing},
        {statusAnswer(6, R"(,"sync_last":-1)"), "1 0 0 | 6 active 0 ok 1 enabled 1 | ? ? at -1 | 0% 60 min"},
        {statusAnswer(6, R"(,"sync_last":9223372036854775807)"), "1 0 0 | 6 active 0 ok 1 enabled 1" + nothing},
        {R"({"result":true,"error_code":0,"policy":{"postponecredentialmins":0}})",
         "1 0 0 | 0 active 0 ok 1 enabled 0 | ? ? ? | 0% 0 min"}};
    const auto shown = [&unknown](const std::string& text) { return (text == unknown ? "?" : text) + " "; };
    for (const auto& [answer, expected] : table) {
        const CommandResult result = parser.ParseStatus(answer, state);
        EXPECT_EQ(std::to_string(result.ok) + " " + std::to_string(result.errorCode) + " " +
                      std::to_string(static_cast<int>(result.alert)) + " | " + std::to_string(parser.state()) +
                      " active " + std::to_string(state.syncORMActive) + " ok " + std::to_string(state.syncORMOK) +
                      " enabled " + std::to_string(state.syncORMEnabled) + " | " + shown(state.version) +
                      shown(state.uuid) + shown(state.lastORMSync) + "| " + std::to_string(state.encryptionProgress) +
                      "% " + std::to_string(state.postponeTimeInMins) + " min",
                  expected)
            << answer;
    }
}

TEST_F(Interpretation, RequiresTheFirstActionOnceForEachChange) {
    const std::string issue = R"(,"sync_ok":0)";
    struct Step {
        std::string answer;
        std::string_view stored;
        bool required;
        bool carriedOut = true;
    };
    const std::vector<Step> steps{{statusAnswer(3), "EnterEncPassword", true, false},
                                  {statusAnswer(3), "EnterEncPassword", true},
                                  {statusAnswer(3), "EnterEncPassword", false},
                                  {statusAnswer(6), "NoAction", false},
                                  {statusAnswer(3), "EnterEncPassword", true, false},
                                  {statusAnswer(1), "NoAction", false},
                                  {statusAnswer(7, issue), "EnterDecPassword", true},
                                  {statusAnswer(5, issue), "ProxySync_ORM", true},
                                  {"", "RetryComms", true},
                                  {statusAnswer(4, issue), "Initialising_ORM", true},
                                  {statusAnswer(6, issue), "ProxySync_ORM", true},
                                  {statusAnswer(6, issue + R"(,"sync_active":1)"), "NoAction", false}};
    for (const Step& step : steps) {
        parser.ParseStatus(step.answer, state);
        const auto at = &step - steps.data();
        EXPECT_EQ(caseName(state.lastActionStored), step.stored) << at;
        EXPECT_EQ(state.isActionRequired, step.required) << at;
        if (step.carriedOut)
            state.isActionRequired = false;
    }
}

TEST_F(Interpretation, NamesTheTrayImage) {
    using enum fv2StatusStateType;
    for (const auto& [overall, name] : {std::pair{Green, "orm_menu_icon"}, std::pair{Yellow, "orm_menu_icon_warning"},
                                        std::pair{Red, "orm_menu_icon_alert"}}) {
        state.overallState = overall;
        for (const auto& [active, blocked] : {std::pair{false, false}, {false, true}, {true, true}, {true, false}}) {
            state.syncORMActive = active;
            state.syncORMBlocked = blocked;
            EXPECT_EQ(state.getMenuBarStatusIcon(), active && !blocked ? "orm_menu_icon_sync" : name);
        }
    }
}

} // namespace
} // namespace fv2::test
