// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2Announcements.h"

#include <algorithm>
#include <utility>

namespace fv2 {

namespace {

fv2Announcement passwordFor(fv2AppCommand action) {
    switch (action) {
    case fv2AppCommand::EnterEncPassword:
        return fv2Announcement::PasswordToEncrypt;
    case fv2AppCommand::EnterDecPassword:
        return fv2Announcement::PasswordToDecrypt;
    default:
        return fv2Announcement::None;
    }
}

bool isPassword(fv2Announcement what) {
    return what == fv2Announcement::PasswordToEncrypt || what == fv2Announcement::PasswordToDecrypt;
}

bool isLight(fv2Announcement what) {
    return what == fv2Announcement::Yellow || what == fv2Announcement::Red;
}

} // namespace

std::optional<FV2Announcements::Situation> FV2Announcements::situation(const FV2AppState& state, bool isWatched) {
    // Red without a reason is what the state begins with.
    if (state.statusMessageList.empty() && state.overallState == fv2StatusStateType::Red)
        return std::nullopt;
    Situation now{.serviceState = state.serviceState,
                  .action = state.lastActionStored,
                  .isSyncActive = state.syncORMActive,
                  .isSyncOK = state.syncORMOK,
                  .isWatched = isWatched};
    for (const FV2StatusMesssageListItem& message : state.statusMessageList)
        if (message.fromAIS)
            now.light = std::max(now.light, message.statusType);
    return now;
}

void FV2Announcements::passwordWindowKeptShut(fv2Window kind) {
    addPassword(kind == fv2Window::Password_Encrypt ? fv2Announcement::PasswordToEncrypt
                                                    : fv2Announcement::PasswordToDecrypt);
}

void FV2Announcements::addPassword(fv2Announcement what) {
    if (std::exchange(m_knownPassword, what) != what)
        add(what);
}

void FV2Announcements::postponed() {
    for (fv2Announcement* const what : {&m_shown, &m_waiting})
        if (isPassword(*what))
            *what = fv2Announcement::None;
}

void FV2Announcements::userSyncFailed() {
    if (!std::exchange(m_userSyncs, false))
        return; // told by the status already
    m_requestFailed = true;
    add(fv2Announcement::SyncFailed);
}

void FV2Announcements::setTrayMissing(bool missing) {
    m_trayIsMissing = missing;
    if (missing)
        add(fv2Announcement::NoTray);
}

void FV2Announcements::add(fv2Announcement what) {
    m_waiting = std::max(m_waiting, what);
}

std::optional<fv2Announcement> FV2Announcements::look(const Situation& now, Time time,
                                                      const std::function<bool()>& isQuiet) {
    addWork(now);
    addSync(now);
    followLight(now, time);
    const fv2Announcement password = passwordFor(now.action);
    // It may be kept shut again when a postponement is over.
    if (password == fv2Announcement::None || now.isPostponed)
        m_knownPassword = fv2Announcement::None;
    else if (now.isWatched)
        m_knownPassword = password;
    else if (now.isPromptShut)
        addPassword(password);
    if (now.isWatched || !holds(m_waiting, now))
        m_waiting = fv2Announcement::None;
    const bool isOver = m_shown != fv2Announcement::None && (now.isWatched || !holds(m_shown, now));
    if (isOver)
        m_shown = fv2Announcement::None;
    const fv2Announcement what = std::max(m_waiting, lightToTell(time));
    if (what != fv2Announcement::None && what >= m_shown && !isQuiet()) {
        if (isLight(what)) {
            m_light = now.light;
            m_lightChanged.reset();
        } else
            m_waiting = fv2Announcement::None;
        return m_shown = what;
    }
    return isOver ? std::optional(fv2Announcement::None) : std::nullopt;
}

std::optional<FV2Announcements::Time> FV2Announcements::nextLook() const {
    return m_lightChanged ? std::optional(*m_lightChanged + kWorseFor) : std::nullopt;
}

//! What calls for a password is told by the password window. What the user knows changes no faster for the better
//! than for the worse, so a light that goes to and fro is told once, and one that is never the same for long is told.
void FV2Announcements::followLight(const Situation& now, Time time) {
    const bool isBetterForLong = m_lightChanged && m_lightNow < *m_light && time - *m_lightChanged >= kWorseFor;
    if (isBetterForLong) {
        m_light = m_lightNow;
        m_lightChanged.reset();
    }
    const bool isKnown = !m_light || now.isWatched || passwordFor(now.action) != fv2Announcement::None;
    if (isKnown || now.light == *m_light) {
        m_light = now.light;
        m_lightChanged.reset();
    } else if (!m_lightChanged || (now.light > *m_light) != (m_lightNow > *m_light))
        m_lightChanged = time;
    m_lightNow = now.light;
}

fv2Announcement FV2Announcements::lightToTell(Time time) const {
    if (!m_lightChanged || m_lightNow < *m_light || time - *m_lightChanged < kWorseFor)
        return fv2Announcement::None;
    return m_lightNow == fv2StatusStateType::Red ? fv2Announcement::Red : fv2Announcement::Yellow;
}

//! The agent tries again by itself, so a failure that follows a failure is news only to a user who has asked for it.
void FV2Announcements::addSync(const Situation& now) {
    const bool wasActive = std::exchange(m_wasSyncActive, now.isSyncActive);
    if (now.isSyncActive) {
        m_requestFailed = false;
        return;
    }
    const bool hadFailed = std::exchange(m_syncFailed, !now.isSyncOK);
    if (m_syncFailed && ((!hadFailed && m_light) || (wasActive && m_userSyncs))) {
        m_userSyncs = false;
        add(fv2Announcement::SyncFailed);
    }
}

//! A service that can't be reached or is starting up says nothing about the work on the disk.
void FV2Announcements::addWork(const Situation& now) {
    switch (now.serviceState) {
    case 4:
    case 5:
        m_work = Work::Encrypting;
        return;
    case 8:
    case 9:
        m_work = Work::Decrypting;
        return;
    case 1:
    case 2:
        if (std::exchange(m_work, Work::None) == Work::Decrypting)
            add(fv2Announcement::DecryptionFinished);
        return;
    case 6:
        if (std::exchange(m_work, Work::None) == Work::Encrypting)
            add(fv2Announcement::EncryptionFinished);
        return;
    default:
        return;
    }
}

bool FV2Announcements::holds(fv2Announcement what, const Situation& now) const {
    switch (what) {
    case fv2Announcement::None:
        return false;
    case fv2Announcement::NoTray:
        return m_trayIsMissing;
    case fv2Announcement::EncryptionFinished:
    case fv2Announcement::DecryptionFinished:
        return m_work == Work::None;
    case fv2Announcement::Yellow:
        return now.light == fv2StatusStateType::Yellow;
    case fv2Announcement::Red:
        return now.light == fv2StatusStateType::Red;
    case fv2Announcement::SyncFailed:
        return m_syncFailed || m_requestFailed;
    case fv2Announcement::PasswordToEncrypt:
    case fv2Announcement::PasswordToDecrypt:
        return passwordFor(now.action) == what;
    }
    return false;
}

} // namespace fv2
