// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace fv2 {

//! What users are told by the desktop's notifications, the most important one last.
enum class fv2Announcement : std::uint8_t {
    None,
    NoTray,
    Yellow,
    EncryptionFinished,
    DecryptionFinished,
    Red,
    SyncFailed,
    PasswordToEncrypt,
    PasswordToDecrypt,
};

//! Decides what is announced when: one at a time, each once for its reason, nothing that a window shows already, and
//! nothing for a light that was on at the start. Main thread only.
class FV2Announcements {
public:
    using Time = std::chrono::steady_clock::time_point;

    //! How long a light must have been worse, or better: a service that restarts is away for a moment.
    static constexpr std::chrono::seconds kWorseFor{10};

    //! What was seen of the state.
    struct Situation {
        std::int64_t serviceState = 0;
        fv2StatusStateType light = fv2StatusStateType::Green; //!< without what the synchronisation adds
        fv2AppCommand action = fv2AppCommand::NoAction;
        bool isSyncActive = false;
        bool isSyncOK = true;
        bool isWatched = false;    //!< the user can see a window
        bool isPromptShut = false; //!< a window that nobody sees keeps a password's window shut
        bool isPostponed = false;  //!< the user enters the password later
    };

    //! None before the first status has been read.
    [[nodiscard]] static std::optional<Situation> situation(const FV2AppState& state, bool isWatched);

    void passwordWindowKeptShut(fv2Window kind);
    //! The user wants to enter the password later.
    void postponed();
    void userSynchronises() { m_userSyncs = true; }
    void userSyncFailed();
    void setTrayMissing(bool missing);
    //! The user or the desktop has taken away what is announced.
    void closed() { m_shown = fv2Announcement::None; }

    //! What is to be announced from now on: None takes away what was, nothing leaves all as it is. What waits because
    //! of `isQuiet`, which is asked only when needed, is announced later if it still holds.
    [[nodiscard]] std::optional<fv2Announcement> look(const Situation& now, Time time,
                                                      const std::function<bool()>& isQuiet);
    //! When to look again even if nothing happens; never if there is no time.
    [[nodiscard]] std::optional<Time> nextLook() const;

private:
    enum class Work : std::uint8_t { None, Encrypting, Decrypting };

    void add(fv2Announcement what);
    void addPassword(fv2Announcement what);
    void followLight(const Situation& now, Time time);
    [[nodiscard]] fv2Announcement lightToTell(Time time) const;
    void addSync(const Situation& now);
    void addWork(const Situation& now);
    [[nodiscard]] bool holds(fv2Announcement what, const Situation& now) const;

    fv2Announcement m_shown = fv2Announcement::None;
    fv2Announcement m_waiting = fv2Announcement::None;
    fv2Announcement m_knownPassword = fv2Announcement::None; //!< that it is wanted has been told or shown
    std::optional<fv2StatusStateType> m_light;               //!< that the user knows
    fv2StatusStateType m_lightNow = fv2StatusStateType::Green;
    std::optional<Time> m_lightChanged; //!< since when it has been worse, or better, than the known one
    Work m_work = Work::None;
    bool m_syncFailed = false;
    bool m_requestFailed = false;
    bool m_userSyncs = false;
    bool m_wasSyncActive = false;
    bool m_trayIsMissing = false;
};

} // namespace fv2
