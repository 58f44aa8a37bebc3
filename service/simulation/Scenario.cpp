// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Scenario.h"

#include "simulation/Settings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>

namespace fv2::service {

namespace {

using Json = nlohmann::json;

constexpr std::size_t largestFile = 256 * 1024;
constexpr double longestStep = 86'400;
constexpr std::int64_t widestRamp = 1'000'000;

//! Thrown while parsing, with what is wrong; never leaves this file.
struct Mistake {
    std::string text;
};

[[noreturn]] void refuse(const std::string& where, const std::string& why) {
    throw Mistake{where + ": " + why};
}

void checkKeys(const Json& object, const std::string& where, std::initializer_list<std::string_view> known) {
    if (!object.is_object())
        refuse(where, "wanted an object");
    for (const auto& [key, value] : object.items()) {
        if (std::ranges::find(known, key) == known.end())
            refuse(where, "unknown key \"" + key + '"');
    }
}

std::vector<std::string> readLines(const Json& object, const std::string& where) {
    std::vector<std::string> lines;
    if (!object.contains("set"))
        return lines;
    if (!object["set"].is_array())
        refuse(where + ".set", "wanted a list of texts");
    Values scratch;
    for (const Json& line : object["set"]) {
        const std::string place = where + ".set[" + std::to_string(lines.size()) + ']';
        if (!line.is_string())
            refuse(place, "wanted a text");
        lines.push_back(line.get<std::string>());
        if (const std::string problem = applySetting(scratch, lines.back(), 0); !problem.empty())
            refuse(place, problem);
    }
    return lines;
}

StepEnd readUntil(const Json& step, const std::string& where) {
    static constexpr std::array<std::pair<std::string_view, StepEnd>, 3> ends{
        {{"credentials", StepEnd::Credentials}, {"sync", StepEnd::Sync}, {"next", StepEnd::Next}}};
    if (!step.contains("until"))
        return StepEnd::Time;
    if (step.contains("for"))
        refuse(where, "has both \"for\" and \"until\"");
    for (const auto& [name, end] : ends) {
        if (step["until"] == name)
            return end;
    }
    refuse(where + ".until", R"(wanted "credentials", "sync" or "next")");
}

std::chrono::milliseconds readLength(const Json& step, const std::string& where) {
    if (!step.contains("for"))
        return {};
    const double seconds = step["for"].is_number() ? step["for"].get<double>() : -1;
    if (!(seconds >= 0 && seconds <= longestStep))
        refuse(where + ".for", "wanted seconds, 0 to 86400");
    return std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

std::pair<std::int64_t, std::int64_t> readRamp(const Json& step, const std::string& where) {
    const Json& ramp = step["ramp"];
    const auto fits = [](const Json& value) {
        return value.is_number_integer() && std::abs(value.get<double>()) <= static_cast<double>(widestRamp);
    };
    if (!ramp.is_array() || ramp.size() != 2 || !std::ranges::all_of(ramp, fits))
        refuse(where + ".ramp", "wanted two whole numbers, from and to");
    if (!step.contains("for"))
        refuse(where + ".ramp", "needs \"for\"");
    return {ramp[0].get<std::int64_t>(), ramp[1].get<std::int64_t>()};
}

bool readFlag(const Json& object, const char* key, const std::string& where) {
    if (!object.contains(key))
        return false;
    if (!object[key].is_boolean())
        refuse(where + '.' + key, "wanted true or false");
    return object[key].get<bool>();
}

ScenarioStep readStep(const Json& step, const std::string& where) {
    checkKeys(step, where, {"set", "notify", "for", "until", "ramp"});
    ScenarioStep result;
    result.set = readLines(step, where);
    result.notify = readFlag(step, "notify", where);
    result.end = readUntil(step, where);
    result.length = readLength(step, where);
    if (step.contains("ramp"))
        result.ramp = readRamp(step, where);
    return result;
}

Scenario readAll(const std::string& name, const std::string& text) {
    const Json root = Json::parse(text, nullptr, false);
    if (root.is_discarded())
        refuse(name, "not JSON");
    checkKeys(root, name, {"about", "set", "steps", "quit"});
    if (root.contains("about") && !root["about"].is_string())
        refuse(name + ".about", "wanted a text");
    Scenario scenario{name, readLines(root, name), {}, readFlag(root, "quit", name)};
    if (!root.contains("steps") || !root["steps"].is_array() || root["steps"].empty())
        refuse(name + ".steps", "wanted a list of at least one step");
    for (const Json& step : root["steps"])
        scenario.steps.push_back(readStep(step, name + ".steps[" + std::to_string(scenario.steps.size()) + ']'));
    return scenario;
}

std::optional<std::filesystem::path> findFile(const std::string& nameOrFile,
                                              const std::vector<std::filesystem::path>& folders) {
    std::error_code ignored;
    if (nameOrFile.find('/') != std::string::npos || nameOrFile.ends_with(".json"))
        return std::filesystem::is_regular_file(nameOrFile, ignored) ? std::optional(nameOrFile) : std::nullopt;
    for (const auto& folder : folders) {
        auto file = folder / (nameOrFile + ".json");
        if (std::filesystem::is_regular_file(file, ignored))
            return file;
    }
    return std::nullopt;
}

} // namespace

std::variant<Scenario, std::string> readScenario(const std::string& name, const std::string& text) {
    try {
        return readAll(name, text);
    } catch (const Mistake& mistake) {
        return mistake.text;
    }
}

std::variant<Scenario, std::string> loadScenario(const std::string& nameOrFile,
                                                 const std::vector<std::filesystem::path>& folders) {
    const auto file = findFile(nameOrFile, folders);
    if (!file)
        return nameOrFile + ": no such scenario";
    std::ifstream stream(*file, std::ios::binary);
    std::string text(largestFile, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad() || text.size() == largestFile)
        return file->string() + ": can't be read, or too long";
    auto result = readScenario(file->stem().string(), text);
    if (auto* problem = std::get_if<std::string>(&result))
        return file->parent_path().string() + ": " + *problem;
    return result;
}

} // namespace fv2::service
