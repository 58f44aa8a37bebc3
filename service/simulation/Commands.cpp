// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Commands.h"

#include "simulation/Settings.h"

#include <algorithm>

namespace fv2::service {

struct Commands::Verb {
    std::string_view word;
    void (Commands::*run)(std::string_view rest);
    std::string_view form;
    std::string_view meaning;
};

const std::vector<Commands::Verb>& Commands::verbs() {
    static const std::vector<Verb> all{
        {"next", &Commands::next, "next", "end the scenario's current step"},
        {"notify", &Commands::notify, "notify", "push a notification to every subscribed agent"},
        {"scenario", &Commands::scenario, "scenario NAME|FILE", "start from fresh values and play a scenario"},
        {"show", &Commands::show, "show", "the current values, as the lines that would set them"},
        {"help", &Commands::help, "help", "these lines"},
        {"quit", &Commands::quit, "quit", "end the service"},
    };
    return all;
}

Commands::Commands(Simulation& simulation, Ports ports)
    : m_simulation(simulation)
    , m_ports(std::move(ports)) {
}

void Commands::run(std::string_view line) {
    const auto [word, rest] = splitWord(line);
    if (word.empty())
        return;
    if (const auto verb = std::ranges::find(verbs(), word, &Verb::word); verb != verbs().end()) {
        (this->*verb->run)(rest);
        return;
    }
    // The line itself is not shown: somebody may have typed a password into the wrong window.
    if (const std::string problem = m_simulation.set(line); !problem.empty())
        m_ports.report("line not understood: " + problem + " (see help)");
}

void Commands::next(std::string_view /*rest*/) {
    if (!m_simulation.next())
        m_ports.report("no scenario plays");
}

void Commands::notify(std::string_view /*rest*/) {
    m_ports.notify();
}

void Commands::scenario(std::string_view rest) {
    auto loaded = loadScenario(std::string(rest), m_ports.scenarioFolders);
    if (const auto* problem = std::get_if<std::string>(&loaded))
        m_ports.report("scenario refused: " + *problem);
    else
        m_simulation.play(std::get<Scenario>(std::move(loaded)));
}

void Commands::show(std::string_view /*rest*/) {
    for (const std::string& line : describe(m_simulation.values()))
        m_ports.report("  " + line);
}

void Commands::help(std::string_view /*rest*/) {
    const auto tell = [this](std::string_view form, std::string_view meaning) {
        m_ports.report("  " + std::string(form) + ": " + std::string(meaning));
    };
    for (const auto& [form, meaning] : settingsHelp())
        tell(form, meaning);
    for (const Verb& verb : verbs())
        tell(verb.form, verb.meaning);
}

void Commands::quit(std::string_view /*rest*/) {
    m_ports.quit();
}

} // namespace fv2::service
