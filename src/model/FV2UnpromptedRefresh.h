// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ports/FV2TimerService.h"

#include <functional>
#include <memory>

namespace fv2 {

//! When the agent asks the service for news by itself: nothing is asked while another user's session is in front. Main
//! thread only.
class FV2UnpromptedRefresh {
public:
    //! `refresh` asks now; `beforeTimed` runs before a refresh whose time has come.
    FV2UnpromptedRefresh(FV2TimerService& timers, std::function<void(bool alertOnFailure)> refresh,
                         std::function<void()> beforeTimed)
        : m_timers(timers)
        , m_refresh(std::move(refresh))
        , m_beforeTimed(std::move(beforeTimed)) {}

    //! At once.
    void ask(bool alertOnFailure);
    //! Later, counted from now: soon unless a notification can be expected, because the service has answered with a
    //! token and our socket is bound.
    void askLater(bool serviceKnowsUs);

    //! Whether notifications can come in.
    void setBound(bool bound);
    //! Whether the service works on the disk, so that its progress is to move; counts from the next askLater() on.
    void setWorking(bool working) { m_isWorking = working; }
    //! Whether the user can see a window.
    void setWatched(bool watched);

    void stop();
    void resume() { m_isOn = true; }
    [[nodiscard]] bool isOn() const { return m_isOn; }

private:
    [[nodiscard]] std::chrono::milliseconds pause(bool serviceKnowsUs) const;

    FV2TimerService& m_timers;
    const std::function<void(bool)> m_refresh;
    const std::function<void()> m_beforeTimed;
    bool m_isOn = true;
    bool m_bound = true;
    bool m_isWorking = false;
    bool m_isWatched = false;
    std::unique_ptr<FV2Timer> m_timer;
};

} // namespace fv2
