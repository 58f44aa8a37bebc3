// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2DuplicateInstance.h"

#include "base/CountingSemaphore.h"
#include "comms/FV2AppSocketComms.h"
#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "platform/FV2SessionDisplays.h"

#include <atomic>
#include <iostream>
#include <system_error>
#include <thread>

namespace fv2 {

namespace {

constexpr std::chrono::milliseconds kPause{20};
constexpr CommsTimeouts kHandOver{.attempts = 2, .perAttempt = std::chrono::milliseconds(1500)};
constexpr std::chrono::seconds kLongestHandOver{5};

} // namespace

bool FV2DuplicateInstance::handleDuplicateInstance() {
    logTrace("handleDuplicateInstance -> IN");
    const bool found = findAndHandOver();
    if (found && !m_stop->isRaised())
        logRelease("ERROR: Found another instance.");
    else if (!found)
        logTrace("handleDuplicateInstance -> canConnect FALSE");
    logTrace("handleDuplicateInstance -> leaving");
    return found;
}

//! A copy that holds the lock but does not listen yet is just starting, one that no longer listens is ending: the loop
//! ends when it answers, gives the lock back or neither in time.
bool FV2DuplicateInstance::findAndHandOver() {
    const Deadline deadline(m_patience);
    while (m_lock.tryTake() == FV2InstanceLock::Attempt::HeldByOther) {
        lookElsewhere();
        if (handOver())
            return true;
        if (deadline.passed()) {
            m_isUnreachable = true;
            if (m_isElsewhere)
                return true;
            std::cerr << "fv2-agent: another copy runs and does not answer on its socket"
                      << (isUnreachable() ? "; asking it over the session bus\n" : "\n");
            return true;
        }
        if (m_stop->waitFor(-1, 0, Deadline(kPause)) == fv2Wait::Stopped)
            return true;
    }
    m_lock.leaveNote(sessionDisplays());
    return handOver();
}

//! Once; from then on nothing is asked of that copy.
void FV2DuplicateInstance::lookElsewhere() {
    if (m_isElsewhere || !isOtherSession(m_lock.note(), sessionDisplays()))
        return;
    m_isElsewhere = true;
    constexpr std::string_view kText = "the agent runs in another session of this user, which has its window";
    log(FV2LoggingLevel::error, {kText});
    std::cerr << "fv2-agent: " << kText << '\n';
}

//! On a thread of its own, left behind if the system blocks it: nothing may keep the agent from starting.
bool FV2DuplicateInstance::handOver() const {
    struct Attempt {
        CountingSemaphore over{0};
        std::atomic<bool> connected = false;
    };
    const auto attempt = std::make_shared<Attempt>();
    const auto job = [attempt, stop = m_stop, shows = m_way == FV2HandOver::ShowsWindow && !m_isElsewhere] {
        FV2AppSocketComms comms(stop, kHandOver);
        attempt->connected = comms.createConnection();
        if (attempt->connected) {
            logTrace("handleDuplicateInstance -> canConnect TRUE");
            if (shows) {
                static_cast<void>(comms.sendAndReceive(showUiRequest()));
                logTrace("handleDuplicateInstance -> done sendAndReceive");
            }
        }
        attempt->over.signal();
    };
    std::thread thread;
    try {
        thread = std::thread(job);
    } catch (const std::system_error&) { // the system has no thread left
        job();
        return attempt->connected;
    }
    const bool inTime = attempt->over.waitUntil(Deadline(kLongestHandOver));
    if (inTime)
        thread.join();
    else
        thread.detach();
    return attempt->connected; // also where it takes that long to answer
}

} // namespace fv2
