// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Scenario.h"

#include "service/Harness.h"

#include <fstream>

namespace fv2::service::test {

namespace {

TEST(ReadScenario, NamesTheKeyThatIsWrong) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "s: not JSON"},
        {"[]", "s: wanted an object"},
        {"{}", "s.steps:"},
        {R"({"steps": []})", "s.steps:"},
        {R"({"steps": [3]})", "s.steps[0]: wanted an object"},
        {R"({"steps": [{}], "speed": 2})", "s: unknown key \"speed\""},
        {R"({"steps": [{}], "about": 2})", "s.about:"},
        {R"({"steps": [{}], "quit": "yes"})", "s.quit:"},
        {R"({"steps": [{}], "set": "state 5"})", "s.set:"},
        {R"({"steps": [{}], "set": [5]})", "s.set[0]:"},
        {R"({"steps": [{}, {"set": ["state 5", "state x"]}]})", "s.steps[1].set[1]: wanted: state N"},
        {R"({"steps": [{"set": ["quit"]}]})", "s.steps[0].set[0]: unknown line"},
        {R"({"steps": [{"state": 5}]})", "s.steps[0]: unknown key \"state\""},
        {R"({"steps": [{"for": "5"}]})", "s.steps[0].for:"},
        {R"({"steps": [{"for": -1}]})", "s.steps[0].for:"},
        {R"({"steps": [{"for": 1e300}]})", "s.steps[0].for:"},
        {R"({"steps": [{"until": "later"}]})", "s.steps[0].until:"},
        {R"({"steps": [{"until": "next", "for": 1}]})", "s.steps[0]: has both"},
        {R"({"steps": [{"notify": 1}]})", "s.steps[0].notify:"},
        {R"({"steps": [{"ramp": [0, 100]}]})", "s.steps[0].ramp: needs"},
        {R"({"steps": [{"ramp": [0], "for": 1}]})", "s.steps[0].ramp:"},
        {R"({"steps": [{"ramp": [0, 1e18], "for": 1}]})", "s.steps[0].ramp:"},
        {R"({"steps": [{"ramp": [0, 9223372036854775807], "for": 1}]})", "s.steps[0].ramp:"},
    };
    for (const auto& [text, problem] : cases) {
        const auto result = readScenario("s", text);
        ASSERT_TRUE(std::holds_alternative<std::string>(result)) << text;
        EXPECT_TRUE(std::get<std::string>(result).starts_with(problem))
            << text << ": " << std::get<std::string>(result);
    }
}

TEST(LoadScenario, LooksUpNamesInTheFoldersAndFilesWhereTheyAre) {
    const TemporaryFolder folder;
    const auto nameOf = [&](const std::string& nameOrFile) {
        const auto result = loadScenario(nameOrFile, {folder / "none", folder.path(), SCENARIOS});
        const auto* scenario = std::get_if<Scenario>(&result);
        return scenario == nullptr ? std::get<std::string>(result)
                                   : scenario->name + ' ' + std::to_string(scenario->steps.size());
    };
    std::ofstream(folder / "encrypt.json") << R"({"steps": [{}]})";
    std::ofstream(folder / "long.json") << std::string(300'000, ' ');
    EXPECT_EQ(nameOf("encrypt"), "encrypt 1") << "the first folder that has it";
    EXPECT_EQ(nameOf(std::string(SCENARIOS) + "/encrypt.json"), "encrypt 5");
    EXPECT_NE(nameOf("long").find("too long"), std::string::npos);
    EXPECT_EQ(nameOf("nosuch"), "nosuch: no such scenario");
    EXPECT_EQ(nameOf(folder.path() + '/'), folder.path() + "/: no such scenario");
}

} // namespace

} // namespace fv2::service::test
