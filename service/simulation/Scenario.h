// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace fv2::service {

enum class StepEnd {
    Time,        //!< after the step's length
    Credentials, //!< when credentials were accepted
    Sync,        //!< when a request to synchronise was accepted
    Next         //!< when the operator says so
};

struct ScenarioStep {
    std::vector<std::string> set; //!< lines of the settings
    bool notify = false;          //!< tell the agents even though nothing that they see changed
    StepEnd end = StepEnd::Time;
    std::chrono::milliseconds length{0};
    std::optional<std::pair<std::int64_t, std::int64_t>> ramp; //!< of the progress, over the length
};

struct Scenario {
    std::string name;
    std::vector<std::string> set; //!< before the first step
    std::vector<ScenarioStep> steps;
    bool quitAtEnd = false;
};

//! A scenario, or what is wrong with its text, naming the key. Everything is checked here: what loads can be played.
[[nodiscard]] std::variant<Scenario, std::string> readScenario(const std::string& name, const std::string& text);

//! `nameOrFile` is a path when it holds a slash or ends in ".json", otherwise a name to look up in `folders` in turn.
[[nodiscard]] std::variant<Scenario, std::string> loadScenario(const std::string& nameOrFile,
                                                               const std::vector<std::filesystem::path>& folders);

} // namespace fv2::service
