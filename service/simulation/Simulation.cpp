// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Simulation.h"

#include "simulation/Settings.h"

#include <algorithm>
#include <cstdlib>

namespace fv2::service {

namespace {

constexpr std::int64_t busyError = 5;

//! While the service prepares the disk it runs no synchronisation.
bool blocksSync(std::int64_t state) {
    return state == 4 || state == 8;
}

} // namespace

Simulation::Simulation(Ports ports)
    : m_ports(std::move(ports)) {
}

EngineOutcome Simulation::startSync() {
    if (blocksSync(m_values.status.state))
        return {false, busyError};
    if (m_values.onSync.end == SyncEnd::Refuse)
        return {false, m_values.onSync.errorCode};
    if (!m_values.status.syncActive) {
        m_values.status.syncActive = true;
        m_syncEnds = m_ports.now() + m_values.onSync.duration;
    }
    endStepThatWaitsFor(StepEnd::Sync);
    m_syncUntold = true;
    return {};
}

EngineOutcome Simulation::takeCredentials(uid_t /*uid*/, std::string_view /*username*/, std::string_view /*password*/) {
    if (m_values.credentials.accepted)
        endStepThatWaitsFor(StepEnd::Credentials);
    return m_values.credentials;
}

void Simulation::endStepThatWaitsFor(StepEnd event) {
    if (m_scenario && step().end == event)
        m_stepEnds = m_ports.now();
}

void Simulation::play(Scenario scenario) {
    m_values = Values{};
    m_syncEnds.reset();
    m_scenario = std::move(scenario);
    applyAll(m_scenario->set);
    enterStep(0, m_ports.now());
}

bool Simulation::next() {
    if (!m_scenario)
        return false;
    leaveStep(m_ports.now());
    return true;
}

std::string Simulation::set(std::string_view line) {
    std::string problem = applySetting(m_values, line, m_ports.epochSeconds());
    tellChanges();
    return problem;
}

void Simulation::advance() {
    const TimePoint now = m_ports.now();
    if (m_syncEnds && *m_syncEnds <= now)
        finishSync();
    tellChanges();
    while (m_stepEnds && *m_stepEnds <= now)
        leaveStep(*m_stepEnds);
    moveRamp(now);
    tellChanges();
}

void Simulation::finishSync() {
    m_syncEnds.reset();
    // Unless the operator has ended it meanwhile.
    if (m_values.status.syncActive)
        applyAll({m_values.onSync.end == SyncEnd::Ok ? "sync ok" : "sync fail"});
}

void Simulation::applyAll(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        std::ignore = applySetting(m_values, line, m_ports.epochSeconds());
}

void Simulation::enterStep(std::size_t index, TimePoint start) {
    m_step = index;
    m_stepStart = start;
    m_stepEnds = step().end == StepEnd::Time ? std::optional(start + step().length) : std::nullopt;
    m_ports.report("scenario " + m_scenario->name + ": step " + std::to_string(index + 1) + " of " +
                   std::to_string(m_scenario->steps.size()));
    applyAll(step().set);
    if (step().ramp)
        m_values.status.progress = step().ramp->first;
    const bool willTell = m_values.status != m_told.status;
    tellChanges();
    if (step().notify && !willTell)
        m_ports.changed();
}

void Simulation::leaveStep(TimePoint end) {
    if (step().ramp)
        m_values.status.progress = step().ramp->second;
    tellChanges();
    if (m_step + 1 < m_scenario->steps.size()) {
        enterStep(m_step + 1, end);
        return;
    }
    m_stepEnds.reset();
    m_ports.report("scenario " + m_scenario->name + ": done");
    const bool quits = m_scenario->quitAtEnd;
    m_scenario.reset();
    if (quits)
        m_ports.quit();
}

void Simulation::moveRamp(TimePoint now) {
    if (!m_scenario || !step().ramp || step().length.count() == 0)
        return;
    const auto [from, to] = *step().ramp;
    const auto passed = std::chrono::floor<std::chrono::milliseconds>(now - m_stepStart);
    m_values.status.progress = from + (to - from) * passed.count() / step().length.count();
}

Simulation::TimePoint Simulation::rampTime() const {
    const auto [from, to] = *step().ramp;
    const std::int64_t done = std::abs(m_values.status.progress - from) + 1;
    const std::int64_t all = std::max<std::int64_t>(std::abs(to - from), 1);
    // Rounded up, so that the step is really reached at that time.
    return m_stepStart + std::chrono::milliseconds((step().length.count() * done + all - 1) / all);
}

void Simulation::tellChanges() {
    m_syncUntold = false;
    const auto before = describe(m_told);
    const auto after = describe(m_values);
    for (std::size_t line = 0; line < after.size(); ++line) {
        if (before[line] != after[line])
            m_ports.report(after[line]);
    }
    const bool visible = m_values.status != m_told.status;
    m_told = m_values;
    if (visible)
        m_ports.changed();
}

std::optional<Simulation::TimePoint> Simulation::nextTime() const {
    if (m_syncUntold)
        return m_ports.now();
    std::optional<TimePoint> earliest = m_stepEnds;
    const auto consider = [&earliest](TimePoint time) { earliest = earliest ? std::min(*earliest, time) : time; };
    if (m_syncEnds)
        consider(*m_syncEnds);
    if (m_scenario && step().ramp)
        consider(rampTime());
    return earliest;
}

} // namespace fv2::service
