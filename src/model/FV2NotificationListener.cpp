// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2NotificationListener.h"

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"

#include <cstdlib>
#include <pthread.h>
#include <system_error>

namespace fv2 {

namespace {

constexpr std::chrono::milliseconds kLongestEnd{400};

} // namespace

void FV2NotificationListener::start() {
    logRelease("runBackgroundThread -> in");
    m_started = true;
    makeThread();
}

void FV2NotificationListener::makeThread() {
    try {
        m_thread = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        const std::string what = "no notifications: the system has no thread left to listen on";
        log(FV2LoggingLevel::error, {"runBackgroundThread -> " + what});
        reportOnce(what, what);
        m_events.bound(false);
    }
}

void FV2NotificationListener::rebindIfPathIsGone() {
    if (!m_started)
        return;
    if (!m_thread.joinable())
        makeThread();
    else if (backgroundAppSocketComms->isPathGone())
        backgroundAppSocketComms->stopListening();
}

void FV2NotificationListener::run() {
    ::pthread_setname_np(::pthread_self(), "fv2-listener");
    logRelease("runBackgroundThread -> async -> grabbing ");
    const SemaphoreHold hold(m_life);
    const StopSignal& stop = backgroundAppSocketComms->stopSignal();
    while (!stop.isRaised()) {
        logRelease("runBackgroundThread -> createBinding ");
        if (backgroundAppSocketComms->createBinding()) {
            m_events.bound(true);
            serve();
        } else {
            log(FV2LoggingLevel::error, {"runBackgroundThread -> no notifications: can't bind " +
                                         backgroundAppSocketComms->path() + ", somebody else may hold it"});
        }
        if (stop.isRaised())
            break;
        m_events.bound(false);
        if (backgroundAppSocketComms->isPathGone())
            continue;
        // Gives the cause of the failure time to pass. No peer is left waiting meanwhile.
        backgroundAppSocketComms->cleanup();
        static_cast<void>(stop.waitFor(-1, 0, Deadline(m_retryAfter)));
    }
    backgroundAppSocketComms->cleanup();
    logRelease("runBackgroundThread -> leaving? ");
}

void FV2NotificationListener::serve() {
    for (;;) {
        logRelease("runBackgroundThread -> Waiting ");
        FV2SocketComms_ReceivedData received = backgroundAppSocketComms->listenAcceptAndReceiveData();
        if (!received.socket)
            return;
        logRelease("runBackgroundThread -> Woke ");
        if (received.byteCount > 0)
            answer(received);
        backgroundAppSocketComms->closeAfterAnswer(std::move(received));
    }
}

void FV2NotificationListener::answer(const FV2SocketComms_ReceivedData& received) {
    const fv2JsonCommand command = commandKind(received.data);
    const int socket = received.socket.get();
    logRelease("send back sock:", socket, " ");
    const ssize_t sent = backgroundAppSocketComms->send(socket, notificationReply(command != fv2JsonCommand::None));
    logRelease("sent back sock:", socket, " result: ", sent);
    m_events.received(command);
}

FV2NotificationListener::~FV2NotificationListener() {
    stop();
    if (m_isLeftBehind)
        std::_Exit(EXIT_SUCCESS); // its thread still uses these members
}

void FV2NotificationListener::stop() {
    m_started = false;
    if (!m_thread.joinable())
        return;
    backgroundAppSocketComms->shutdown();
    logRelease("waiting for background thread to die");
    if (!m_life.waitUntil(Deadline(kLongestEnd))) {
        const std::string what = "the listener does not end; ending without it";
        log(FV2LoggingLevel::error, {what});
        reportOnce(what, what);
        m_isLeftBehind = true;
        m_thread.detach();
        return;
    }
    logRelease("background thread died");
    m_life.signal();
    // A loop that had not begun yet when we waited begins now, sees the raised signal and leaves.
    m_thread.join();
}

} // namespace fv2
