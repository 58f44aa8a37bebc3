// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/CountingSemaphore.h"
#include "model/FV2AppState.h"
#include "model/ports/FV2Dispatch.h"
#include "model/ports/FV2ServiceClient.h"
#include "model/ports/FV2TimerService.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace fv2 {

//! Lets the service synchronise with its management server: one synchronisation at a time, and one in ten minutes that
//! nobody asked for. Main thread only.
class FV2ProxySync {
public:
    //! What the synchronisation asks of its owner; nothing any more once `owner` has died.
    struct Ports {
        FV2Dispatch& dispatch;
        FV2TimerService& timers;
        FV2ServiceClient& service;
        FV2AppState& state;
        std::weak_ptr<const void> owner;
        //! `syncORMActive` has changed: shows the state.
        std::function<void()> show;
        std::function<void()> succeeded;
        //! Has been shown already.
        std::function<void(const CommandResult&, fv2SyncSource source, bool alertOnFailure)> failed;
        //! Whether the agent may ask the service for anything by itself.
        std::function<bool()> mayAskUnprompted;
        std::function<bool()> isMainWindowOpen;
    };

    explicit FV2ProxySync(Ports ports)
        : m_ports(std::move(ports)) {}

    //! Dropped while one is in flight. Returns at once.
    void start(fv2SyncSource source, bool alertOnFailure);

    //! The status calls for one, and not the user. Rate-limited, as a failure calls for the next one at once; one that
    //! waits is dropped if the main window shows by then that it is called for.
    void syncUnasked();

private:
    void finish(fv2SyncSource source, bool alertOnFailure, const CommandResult& result);

    const Ports m_ports;
    CountingSemaphore proxySyncSemaphore{1};
    std::optional<std::chrono::steady_clock::time_point> m_lastUnasked;
    std::unique_ptr<FV2Timer> m_nextUnasked;
};

} // namespace fv2
