// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "model/ports/FV2TimerService.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace fv2 {

//! The password window that nobody asked for: whether it may open, and when one that was postponed comes back. What the
//! user asks for does not come here. Main thread only.
class FV2PasswordPrompt {
public:
    enum class Wish {
        Wanted,
        NotNow,    //!< nothing is known of the service, or the user is not there
        NotWanted, //!< the service does not ask for that password
    };

    //! What the prompt asks of its owner.
    struct Ports {
        FV2TimerService& timers;
        std::function<Wish(fv2Window)> wish;
        //! Opens the window if nothing prevents it; whether it is open now.
        std::function<bool(fv2Window)> open;
        //! The window is wanted, and another window or the desktop's wish for silence keeps it shut; may be told again
        //! every minute.
        std::function<void(fv2Window)> isKeptShut;
        //! Whether the desktop asks for silence, and a way to wait until that is known.
        std::function<bool()> doNotDisturb;
        std::function<void(std::function<void()>)> whenQuietIsKnown;
    };

    explicit FV2PasswordPrompt(Ports ports)
        : m_ports(std::move(ports)) {}

    //! The service has begun to ask for this password. Nothing while the window of that kind is postponed; where the
    //! desktop asks for silence, the window opens once that is over.
    void ask(fv2Window kind);

    //! A status has been read: an unwanted prompt need not come back; if wanted again, it is a new one.
    void dropUnwanted();

    //! Lets the window come back after so many minutes, a year at most, asleep or awake; never for 0 or less. If it
    //! can't open then, tries again every minute.
    void postpone(fv2Window kind, std::int64_t minutes);
    //! By the user, whose time is not over.
    [[nodiscard]] bool isPostponed() const { return m_postponed; }
    //! For how many minutes a postponement of so many holds.
    [[nodiscard]] static std::int64_t longestPostponement(std::int64_t minutes);

private:
    void askNow(fv2Window kind);
    //! False when it should be looked at again.
    bool tryToOpen(fv2Window kind);
    void waitFor(std::chrono::minutes delay);

    const Ports m_ports;
    fv2Window m_waiting = fv2Window::None;
    bool m_postponed = false; //!< by the user, whose time is not over
    std::unique_ptr<FV2Timer> passwordDialogPostponeTimer;
};

} // namespace fv2
