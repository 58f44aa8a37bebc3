// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "protocol/Report.h"
#include "simulation/Scenario.h"
#include "simulation/Values.h"

#include <functional>
#include <optional>

namespace fv2::service {

//! A disk, a synchronisation and a policy that exist only as values, moved by a scenario, by an operator's lines and by
//! what agents ask. A request's effects are told by the next `advance`, so that its reply goes out before them.
class Simulation final : public Engine {
public:
    using TimePoint = Deadline::Clock::time_point;

    struct Ports {
        std::function<TimePoint()> now;
        std::function<std::int64_t()> epochSeconds;
        Report report;
        std::function<void()> changed; //!< something that a status reply tells is different now
        std::function<void()> quit;    //!< a scenario that ends the service is over
    };

    explicit Simulation(Ports ports);

    EngineStatus status() const override { return m_values.status; }
    EngineOutcome startSync() override;
    EngineOutcome takeCredentials(uid_t uid, std::string_view username, std::string_view password) override;

    [[nodiscard]] const Values& values() const { return m_values; }

    //! Starts from fresh values, whatever was so before.
    void play(Scenario scenario);

    //! Ends the current step; false when no scenario plays.
    bool next();

    //! As applySetting(), told at once.
    [[nodiscard]] std::string set(std::string_view line);

    //! Does all that is due by now and tells what changed.
    void advance();

    //! When `advance` has something to do next.
    [[nodiscard]] std::optional<TimePoint> nextTime() const;

private:
    void applyAll(const std::vector<std::string>& lines);
    void enterStep(std::size_t index, TimePoint start);
    void leaveStep(TimePoint end);
    void endStepThatWaitsFor(StepEnd event);
    void moveRamp(TimePoint now);
    void finishSync();
    void tellChanges();
    [[nodiscard]] const ScenarioStep& step() const { return m_scenario->steps[m_step]; }
    [[nodiscard]] TimePoint rampTime() const;

    Ports m_ports;
    Values m_values;
    Values m_told;
    bool m_syncUntold = false; //!< a request has started one
    std::optional<TimePoint> m_syncEnds;

    std::optional<Scenario> m_scenario;
    std::size_t m_step = 0;
    TimePoint m_stepStart;
    std::optional<TimePoint> m_stepEnds;
};

} // namespace fv2::service
