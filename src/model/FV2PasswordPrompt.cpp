// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2PasswordPrompt.h"

#include <algorithm>

namespace fv2 {

namespace {

//! The longest postponement that counts: a year.
constexpr std::int64_t kLongestPostponement = std::int64_t{60} * 24 * 365;
constexpr std::chrono::minutes kLookAgain{1};

} // namespace

void FV2PasswordPrompt::ask(fv2Window kind) {
    m_ports.whenQuietIsKnown([this, kind] { askNow(kind); });
}

void FV2PasswordPrompt::askNow(fv2Window kind) {
    if (m_postponed && m_waiting == kind)
        return;
    const bool isDone = tryToOpen(kind);
    if (m_postponed)
        return; // the one of the other direction keeps its time
    m_waiting = kind;
    passwordDialogPostponeTimer.reset();
    // The user reads it in the open window, so it need not come later.
    if (!isDone && (m_ports.wish(kind) == Wish::NotNow || m_ports.doNotDisturb()))
        waitFor(kLookAgain);
}

bool FV2PasswordPrompt::tryToOpen(fv2Window kind) {
    const Wish wish = m_ports.wish(kind);
    if (wish != Wish::Wanted)
        return wish == Wish::NotWanted;
    const bool isOpen = m_ports.open(kind);
    if (!isOpen)
        m_ports.isKeptShut(kind);
    return isOpen;
}

void FV2PasswordPrompt::dropUnwanted() {
    if (m_ports.wish(m_waiting) != Wish::NotWanted)
        return;
    m_postponed = false;
    passwordDialogPostponeTimer.reset();
}

void FV2PasswordPrompt::postpone(fv2Window kind, std::int64_t minutes) {
    passwordDialogPostponeTimer.reset();
    m_waiting = kind;
    m_postponed = minutes > 0;
    if (m_postponed)
        waitFor(std::chrono::minutes(longestPostponement(minutes)));
}

std::int64_t FV2PasswordPrompt::longestPostponement(std::int64_t minutes) {
    return std::min(minutes, kLongestPostponement);
}

void FV2PasswordPrompt::waitFor(std::chrono::minutes delay) {
    passwordDialogPostponeTimer = m_ports.timers.after(delay, [this] {
        passwordDialogPostponeTimer.reset();
        m_postponed = false;
        if (!tryToOpen(m_waiting))
            waitFor(kLookAgain);
    });
}

} // namespace fv2
