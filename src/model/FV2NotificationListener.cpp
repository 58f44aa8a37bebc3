// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2NotificationListener.h"

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"

#include <pthread.h>

namespace fv2 {

void FV2NotificationListener::start() {
    logRelease("runBackgroundThread -> in");
    m_thread = std::thread([this] { run(); });
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
        if (!stop.isRaised())
            m_events.bound(false);
        // Also after a listening socket that failed: whatever broke it is given time to pass.
        static_cast<void>(stop.waitFor(-1, 0, Deadline(m_retryAfter)));
    }
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
            answer(std::move(received));
    }
}

void FV2NotificationListener::answer(FV2SocketComms_ReceivedData received) {
    const fv2JsonCommand command = commandKind(received.data);
    const int socket = received.socket.get();
    logRelease("send back sock:", socket, " ");
    const ssize_t sent =
        backgroundAppSocketComms->send(received.socket.get(), notificationReply(command != fv2JsonCommand::None));
    logRelease("sent back sock:", socket, " result: ", sent);
    m_events.received(command);
    backgroundAppSocketComms->closeAfterAnswer(std::move(received));
}

void FV2NotificationListener::stop() {
    if (!m_thread.joinable())
        return;
    backgroundAppSocketComms->shutdown();
    logRelease("waiting for background thread to die");
    m_life.wait();
    logRelease("background thread died");
    m_life.signal();
    // A loop that had not begun yet when we waited begins now, sees the raised signal and leaves.
    m_thread.join();
    backgroundAppSocketComms->cleanup();
}

} // namespace fv2
