// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/PollLoop.h"
#include "simulation/Commands.h"
#include "simulation/Simulation.h"

#include <string>

namespace fv2::service {

//! Hands the lines that come on a descriptor to the commands; the descriptor's end is no reason to stop.
class Console final : public PollClient {
public:
    //! `fd` is borrowed, and may be 0.
    Console(int fd, Commands& commands)
        : m_fd(fd)
        , m_commands(commands) {}

    void prepare(PollSet& set) const override;
    void handle(const PollSet& set) override;

private:
    int m_fd;
    Commands& m_commands;
    bool m_ended = false;
    std::string m_text;
};

//! Wakes the loop when the simulation has something to do.
class SimulationTimer final : public PollClient {
public:
    explicit SimulationTimer(Simulation& simulation)
        : m_simulation(simulation) {}

    void prepare(PollSet& set) const override;
    void handle(const PollSet& /*set*/) override { m_simulation.advance(); }

private:
    Simulation& m_simulation;
};

} // namespace fv2::service
