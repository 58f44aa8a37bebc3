// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Report.h"
#include "simulation/Simulation.h"

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace fv2::service {

//! The operator's lines: the settings, and the few that do more than set a value.
class Commands {
public:
    struct Ports {
        std::vector<std::filesystem::path> scenarioFolders;
        Report report;
        std::function<void()> notify;
        std::function<void()> quit;
    };

    Commands(Simulation& simulation, Ports ports);

    //! Carries out one line; an empty one is nothing. What went wrong is reported in one line, and then nothing
    //! changed.
    void run(std::string_view line);

private:
    void next(std::string_view rest);
    void notify(std::string_view rest);
    void scenario(std::string_view rest);
    void show(std::string_view rest);
    void help(std::string_view rest);
    void quit(std::string_view rest);

    struct Verb;
    static const std::vector<Verb>& verbs();

    Simulation& m_simulation;
    Ports m_ports;
};

} // namespace fv2::service
