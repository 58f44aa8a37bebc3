// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Fakes.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fv2::test {

struct Interpretation : testing::Test {
    MarkedStrings strings;
    FV2AppState state{strings, 501, ""};
    FV2JsonParserORM parser{
        strings, [](std::int64_t at) { return at < 1'000'000'000'000 ? "at " + std::to_string(at) : std::string(); }};
};

TEST_F(Interpretation, ShowsTheRowsOfEachStateAndOneOfTheSynchronisation) {
    const std::array<std::string, 3> colours{"Green", "Yellow", "Red"};
    const auto colour = [&](fv2StatusStateType type) { return colours.at(static_cast<std::size_t>(type)); };
    const std::string percent = " ORM_SM_PERCENT_FMT 42, Yellow; ";
    const std::string notEncrypted = "NoAction: ORM_SM_NOT_ENCD %1, ORM_SM_NOT_ENCD_DESC %1, Yellow; ";
    const std::vector<std::pair<std::vector<std::int64_t>, std::string>> table{
        {{-1}, "RetryComms: ALERT_TITLE_COMMS %1, ALERT_ERROR_COMMS %1, Red; "},
        {{0, 11}, "NoAction: ORM_SM_BADCONFIG %1, ORM_SM_BADFCONFIG %1, Red; "},
        {{1, 2}, notEncrypted},
        {{3}, "EnterEncPassword: ORM_SM_WANT_ENC %1, ORM_SM_WANT_ENC_DESC %1, Red; " + notEncrypted},
        {{4}, "Initialising_ORM: ORM_SM_INIT %1, ORM_SM_STARTING_ENC" + percent},
        {{5}, "NoAction: ORM_SM_ENCING %1, ORM_SM_ENCING_DESC" + percent},
        {{7}, "EnterDecPassword: ORM_SM_WANT_DEC %1, ORM_SM_WANT_DEC_DESC %1, Yellow; "},
        {{8}, "Initialising_ORM: ORM_SM_INIT %1, ORM_SM_STARTING_DEC" + percent},
        {{9}, "NoAction: ORM_SM_DECING %1, ORM_SM_DECING_DESC" + percent},
        {{12, 13}, "NoAction: ORM_SM_OTHER_MANAGED %1, ORM_SM_OTHER_MANAGED_DESC %1, Red; "},
        {{6, 10, 14, 99, -2}, ""}};
    const std::vector<std::pair<std::string, std::string>> synchronisations{
        {R"("sync_ok":1)", ""},
        {R"("sync_ok":0)", "ProxySync_ORM: ORM_SM_SYNC %1, ORM_SM_SYNC_ISSUE %1, Yellow sync; "},
        {R"("sync_active":1)", "NoAction: ORM_SM_SYNC %1, ORM_SM_SYNC_ACTIVE %1, Yellow sync; "}};
    for (const auto& [states, rows] : table)
        for (const std::int64_t value : states)
            for (const auto& [synchronisation, row] : synchronisations) {
                const bool blocked = value == 4 || value == 8;
                const std::string expected = rows + (blocked ? "" : row);
                parser.ParseStatus(statusAnswer(value, R"(,"progress":42,)" + synchronisation), state);
                std::string shown;
                for (const FV2StatusMesssageListItem& item : state.statusMessageList)
                    shown += std::string(caseName(item.command)) + ": " + item.Title + ", " + item.Text + ", " +
                             colour(item.statusType) + (item.fromAIS ? "; " : " sync; ");
                EXPECT_EQ(shown, expected) << value;
                const bool red = expected.find("Red") != expected.npos;
                EXPECT_EQ(colour(state.overallState), expected.empty() ? "Green" : red ? "Red" : "Yellow") << value;
                EXPECT_EQ(state.syncORMBlocked, blocked) << value;
            }
}

TEST_F(Interpretation, TakesFromAnAnswerWhatItTells) {
    const std::string whole =
        R"("status":{"state":5,"progress":7,"uuid":"u","version":"v","sync_active":1,"sync_ok":0,"sync_last":9},
           "policy":{"postponecredentialmins":5}})";
    const std::string all = " v, u, at 9, 7% 5 min";
    const std::string nothing = " UNKNOWN %1, UNKNOWN %1, UNKNOWN %1, 0% 60 min";
    // One object takes all the answers, so that what one leaves behind shows in the next.
    const std::vector<std::pair<std::string, std::string>> table{
        {R"({"result":true,"error_code":0,)" + whole, "1 0 0, 5: active 1 ok 0 enabled 1" + all},
        {"", "0 0 1, -1: active 0 ok 1 enabled 0" + nothing},
        {R"({"result":true,"error_code":7,)" + whole, "1 7 0, -1: active 1 ok 0 enabled 0" + all},
        {R"({"result":false,"error_code":0,)" + whole, "0 0 1, 5: active 1 ok 0 enabled 1" + all},
        {R"({"result":true,)" + whole, "1 0 0, -1: active 1 ok 0 enabled 0" + all},
        {R"({"error_code":-1})", "0 18446744073709551615 1, -1: active 0 ok 1 enabled 0" + nothing},
        {R"({"success":true,"error_code":0,"status":{},"policy":{}})", "1 0 0, 0: active 0 ok 1 enabled 0" + nothing},
        {statusAnswer(6, R"(,"sync_active":2,"sync_ok":2,"sync_last":0,"version":"","uuid":"")"),
         "1 0 0, 6: active 0 ok 0 enabled 1" + nothing},
        {statusAnswer(6, R"(,"sync_last":9223372036854775807)"), "1 0 0, 6: active 0 ok 1 enabled 1" + nothing}};
    for (const auto& [answer, expected] : table) {
        std::ostringstream told;
        const CommandResult result = parser.ParseStatus(answer, state);
        told << result.ok << ' ' << result.errorCode << ' ' << static_cast<int>(result.alert) << ", " << parser.state()
             << ": active " << state.syncORMActive << " ok " << state.syncORMOK << " enabled " << state.syncORMEnabled
             << ' ' << state.version << ", " << state.uuid << ", " << state.lastORMSync << ", "
             << state.encryptionProgress << "% " << state.postponeTimeInMins << " min";
        EXPECT_EQ(told.str(), expected) << answer;
    }
}

} // namespace fv2::test
