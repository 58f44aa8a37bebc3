// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"
#include "platform/FV2InstanceLock.h"

#include <chrono>
#include <cstdint>
#include <memory>

namespace fv2 {

//! Whether a running copy is asked to show its window.
enum class FV2HandOver : std::uint8_t { ShowsWindow, Silent };

//! Finds out whether another copy of the agent runs for this user and hands over to it. Before anything else is built;
//! blocks for `patience` and one exchange at most.
class FV2DuplicateInstance {
public:
    //! Raising `stop` ends the search at once.
    explicit FV2DuplicateInstance(std::shared_ptr<const StopSignal> stop, FV2HandOver way = FV2HandOver::ShowsWindow,
                                  std::chrono::milliseconds patience = std::chrono::seconds(2))
        : m_stop(std::move(stop))
        , m_way(way)
        , m_patience(patience) {}

    //! True when this copy must end: another one answered, or holds the lock without answering, which is then said on
    //! standard error, or stop was raised. False makes this process the one copy for as long as this object lives.
    [[nodiscard]] bool handleDuplicateInstance();

    //! The other copy runs, but it has not been told that the user wants to see it, who does.
    [[nodiscard]] bool isUnreachable() const {
        return m_isUnreachable && !m_isElsewhere && m_way == FV2HandOver::ShowsWindow;
    }

    //! The other copy runs in another session of the user, where its window would be seen by nobody who asked for it;
    //! which has been said on standard error.
    [[nodiscard]] bool isElsewhere() const { return m_isElsewhere; }

private:
    [[nodiscard]] bool findAndHandOver();
    void lookElsewhere();
    [[nodiscard]] bool handOver() const;

    std::shared_ptr<const StopSignal> m_stop;
    FV2HandOver m_way;
    std::chrono::milliseconds m_patience;
    bool m_isUnreachable = false;
    bool m_isElsewhere = false;
    FV2InstanceLock m_lock;
};

} // namespace fv2
