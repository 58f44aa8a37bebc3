// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/CountingSemaphore.h"
#include "comms/FV2NotificationCommand.h"
#include "comms/FV2SocketCommsBase.h"

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace fv2 {

//! The long-running loop on the agent's own socket: answers each message and tells what it asked for. Owned by the
//! model; created, started and stopped on the main thread.
class FV2NotificationListener {
public:
    //! Called on the listener's thread, or by start() when there is none.
    struct Events {
        //! A message came and has been answered.
        std::function<void(fv2JsonCommand)> received;
        //! Whether notifications can come in: false while somebody else holds the socket's path or no thread can be
        //! made.
        std::function<void(bool)> bound;
    };

    //! While the path can't be bound it is retried every `retryAfter`. `life` is held while the loop runs.
    FV2NotificationListener(std::unique_ptr<FV2SocketCommsBase> comms, CountingSemaphore& life, Events events,
                            std::chrono::milliseconds retryAfter)
        : backgroundAppSocketComms(std::move(comms))
        , m_life(life)
        , m_events(std::move(events))
        , m_retryAfter(retryAfter) {}
    //! Ends the process when the loop could not be ended.
    ~FV2NotificationListener();
    FV2NotificationListener(const FV2NotificationListener&) = delete;
    FV2NotificationListener& operator=(const FV2NotificationListener&) = delete;

    void start();
    //! Ends the loop from any state, in well under 200 ms, and removes the socket's file. If the system holds it up, it
    //! is left behind after 400 ms: then the process has to end without destroying what it uses. A second call does
    //! nothing.
    void stop();

    //! To be called at intervals: binds again if the socket's file has been removed or replaced, and makes the thread
    //! if none could be made. Costs one look at the path.
    void rebindIfPathIsGone();

private:
    void makeThread();
    void run();
    void serve();
    void answer(const FV2SocketComms_ReceivedData& received);

    std::unique_ptr<FV2SocketCommsBase> backgroundAppSocketComms;
    CountingSemaphore& m_life;
    Events m_events;
    std::chrono::milliseconds m_retryAfter;
    bool m_started = false;
    bool m_isLeftBehind = false;
    std::thread m_thread;
};

} // namespace fv2
