// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/RunningCopy.h"

#include "base/Deadline.h"
#include "commands/ExitStatus.h"
#include "commands/SessionBus.h"
#include "platform/FV2DesktopActivation.h"
#include "platform/FV2InstanceLock.h"

#include <thread>

namespace fv2 {

namespace {

constexpr std::chrono::milliseconds kLongestEnd{2000};
constexpr std::chrono::milliseconds kPause{10};

Outcome asked(const QString& action) {
    using Answer = FV2DesktopActivation::Answer;
    if (!FV2InstanceLock().isHeldByOther())
        return {kExitFailed, "no copy of the agent runs"};
    const SessionBus bus = connectedSessionBus();
    if (bus == SessionBus::None)
        return {kExitNoWay, "the running copy can't be reached: there is no session bus here"};
    if (bus == SessionBus::Silent)
        return {kExitUnreachable, "the session bus does not answer"};
    const Answer answer = FV2DesktopActivation::askRunningCopy(action);
    if (answer == Answer::NobodyThere)
        return {kExitNoWay, "the running copy can't be reached: it is not on this session bus"};
    if (answer == Answer::Silence)
        return {kExitUnreachable, "the running copy does not answer"};
    return {kExitDone, {}};
}

} // namespace

Outcome synchronisedRunningCopy() {
    return asked(FV2DesktopActivation::synchroniseAction());
}

Outcome endedRunningCopy() {
    Outcome outcome = asked(FV2DesktopActivation::quitAction());
    if (outcome.status != kExitDone)
        return outcome;
    const Deadline deadline(kLongestEnd);
    while (FV2InstanceLock().isHeldByOther()) {
        if (deadline.passed())
            return {kExitUnreachable, "the running copy does not end"};
        std::this_thread::sleep_for(kPause);
    }
    return outcome;
}

} // namespace fv2
