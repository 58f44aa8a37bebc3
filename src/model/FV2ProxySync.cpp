// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2ProxySync.h"

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"

#include <utility>

namespace fv2 {

namespace {

//! Between synchronisations that nobody asked for: the failure of one calls for another.
constexpr std::chrono::minutes kUnaskedSyncPause{10};

} // namespace

void FV2ProxySync::start(fv2SyncSource source, bool alertOnFailure) {
    FV2AppState& state = m_ports.state;
    logRelease("syncProxyAsync() in");
    const bool wasActive = std::exchange(state.syncORMActive, true);
    m_ports.show();
    if (!proxySyncSemaphore.tryWait()) {
        logRelease("WARNING: ignored overlapped sync attempt (proxy)");
        state.syncORMActive = wasActive;
        m_ports.show();
        logRelease("syncProxyAsync() out.");
        return;
    }
    logRelease("++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC");
    if (source == fv2SyncSource::User) {
        logRelease("appModel->syncProxyAsync -> setting last action for user click (", caseName(state.lastActionStored),
                   ")");
        state.syncORMUserInitiated = true;
        state.syncORMUserInitiatedAction = state.lastActionStored;
    }
    auto job = [&service = m_ports.service, request = proxySyncRequest(state.userID, state.commsToken)] {
        logRelease("Syncing proxy.");
        const CommandResult result = genericResult(service.exchange(request), fv2Alert::FailedProxySync);
        logRelease("syncProxyAsync() syncProxy() done.");
        return result;
    };
    m_ports.dispatch.run(m_ports.owner, std::move(job), [this, source, alertOnFailure](const CommandResult& result) {
        finish(source, alertOnFailure, result);
    });
    logRelease("syncProxyAsync() out.");
}

void FV2ProxySync::finish(fv2SyncSource source, bool alertOnFailure, const CommandResult& result) {
    proxySyncSemaphore.signal();
    m_ports.state.syncORMActive = false;
    if (result.ok) {
        m_ports.succeeded();
        return;
    }
    if (source == fv2SyncSource::User)
        m_ports.state.syncORMUserInitiated = false; // no notification follows that could be the user's
    m_ports.show();
    m_ports.failed(result, source, alertOnFailure);
}

void FV2ProxySync::syncUnasked() {
    if (!m_ports.mayAskUnprompted() || proxySyncSemaphore.count() == 0)
        return;
    const auto now = m_ports.timers.now();
    const auto next = m_lastUnasked ? *m_lastUnasked + kUnaskedSyncPause : now;
    if (now >= next) {
        m_lastUnasked = now;
        start(fv2SyncSource::None, true);
        return;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - now);
    m_nextUnasked = m_ports.timers.after(left, [this] {
        m_nextUnasked.reset();
        if (!m_ports.isMainWindowOpen() && m_ports.state.lastActionStored == fv2AppCommand::ProxySync_ORM)
            syncUnasked();
    });
}

} // namespace fv2
