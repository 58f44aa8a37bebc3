// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2AppStateModel.h"

#include "comms/FV2Records.h"
#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "model/FV2StatesTable.h"

#include <cstdlib>

namespace fv2 {

namespace {

//! How often the status is asked for while no notification can be expected: the service can't be reached, and a
//! restarted one does not know us, or somebody else holds our socket's path.
constexpr std::chrono::seconds kUnpromptedRefresh{60};
//! And otherwise: a service that ended without a word, or came back without its memory, is noticed in the end.
constexpr std::chrono::minutes kHeartbeat{10};

} // namespace

FV2AppStateModel::FV2AppStateModel(Surroundings surroundings, std::int64_t userId)
    : m_outside(std::move(surroundings))
    , m_state(m_outside.strings, userId, m_outside.computerName)
    , jsonParser(m_outside.strings, m_outside.mediumDate)
    , m_serviceGate(m_outside.timers, 2,
                    [this] {
                        m_refreshIsWanted = false;
                        startRefresh(true, fv2SyncSource::Service, false, &m_serviceGate);
                    })
    , m_movedGate(m_outside.timers, 1, [this] { startRefresh(false, fv2SyncSource::Moved, false, &m_movedGate); })
    , m_askCounter(std::make_shared<std::atomic<std::uint64_t>>(0))
    , m_listener(
          m_outside.makeAppSocket(), backgroundThreadSemaphore,
          {.received = [this](fv2JsonCommand command) { onNotification(command); },
           .bound = [this](bool bound) { m_outside.dispatch.toMain(guarded([this, bound] { onBound(bound); })); }},
          m_outside.bindAgainAfter) {
}

FV2AppStateModel::~FV2AppStateModel() = default;

std::function<void()> FV2AppStateModel::guarded(std::function<void()> job) const {
    return [job = std::move(job), owner = m_owner] {
        if (!owner.expired())
            job();
    };
}

void FV2AppStateModel::runBackgroundThread() {
    m_listener.start();
}

void FV2AppStateModel::stopBackgroundThread() {
    m_listener.stop();
}

//! Runs on the listener's thread. Main hears of the first notification only, until the refresh that it asks for begins.
void FV2AppStateModel::onNotification(fv2JsonCommand command) {
    if (command == fv2JsonCommand::Show) {
        m_outside.dispatch.toMain(guarded([this] { m_appDelegate->menuShowMainWindow(); }));
    } else if (!m_refreshIsWanted.exchange(true)) {
        m_outside.dispatch.toMain(guarded([this] { syncCommsAsync(true, fv2SyncSource::Service, false); }));
    }
}

void FV2AppStateModel::onBound(bool bound) {
    if (std::exchange(m_notificationsArrive, bound) == bound || !m_wantsNotifications)
        return;
    if (bound)
        syncCommsAsync(true, fv2SyncSource::Service, false);
    else
        scheduleUnpromptedRefresh();
}

void FV2AppStateModel::syncCommsAsync(bool checkAction, fv2SyncSource source, bool alertOnFailure) {
    logRelease("syncCommsAsync() in.");
    m_wantsNotifications |= source == fv2SyncSource::Moved;
    if (source == fv2SyncSource::Service && checkAction && !alertOnFailure)
        m_serviceGate.request();
    else if (source == fv2SyncSource::Moved && !checkAction && !alertOnFailure)
        m_movedGate.request();
    else
        startRefresh(checkAction, source, alertOnFailure, nullptr);
    logRelease("syncCommsAsync() out.");
}

void FV2AppStateModel::startRefresh(bool checkAction, fv2SyncSource source, bool alertOnFailure, FV2RefreshGate* gate) {
    auto job = [&service = m_outside.service, uid = m_state.userID, counter = m_askCounter] {
        logRelease("syncCommsAsync -> calling syncCommsDirect()");
        RefreshAnswer answer = syncCommsDirect(service, uid, *counter);
        logRelease("syncCommsAsync -> called syncCommsDirect()");
        return answer;
    };
    m_outside.dispatch.run(m_owner, std::move(job), [=, this](const RefreshAnswer& answer) {
        if (gate != nullptr)
            gate->finished();
        finishRefresh(checkAction, source, alertOnFailure, answer);
    });
}

//! Runs on a worker.
FV2AppStateModel::RefreshAnswer FV2AppStateModel::syncCommsDirect(FV2ServiceLink& service, std::int64_t uid,
                                                                  std::atomic<std::uint64_t>& counter) {
    logRelease("syncCommsDirect() in");
    RefreshAnswer answer;
    answer.tokenNumber = ++counter;
    answer.token = FV2CommsToken::tokenOf(service.exchange(getTokenRequest(uid)));
    logRelease("_updateStatus in.");
    answer.statusNumber = ++counter;
    answer.status = FV2JsonParserORM::decodeStatus(service.exchange(getStatusRequest(uid)));
    logRelease("_updateStatus() out. (result = ", answer.status.result.ok, ")");
    return answer;
}

void FV2AppStateModel::finishRefresh(bool checkAction, fv2SyncSource source, bool alertOnFailure,
                                     const RefreshAnswer& answer) {
    if (answer.tokenNumber > m_newestToken) {
        m_newestToken = answer.tokenNumber;
        m_state.commsToken = answer.token;
    }
    if (answer.statusNumber > m_newestStatus) {
        m_newestStatus = answer.statusNumber;
        jsonParser.apply(answer.status, m_state);
    }
    logRelease("ORM - appModel updateFromModel calling UpdateStatusMessages");
    static_cast<void>(jsonParser.UpdateStatusMessages(m_state));
    logRelease("ORM - appModel updateFromModel called UpdateStatusMessages");
    updateFromModel(checkAction, effectiveSource(source));
    const CommandResult& result = answer.status.result;
    if (alertOnFailure && !result.ok && isMainWindowOpen())
        doAlert(fv2Window::Main, result.errorCode, result.alert);
    if (m_wantsNotifications)
        scheduleUnpromptedRefresh();
    else
        sendUnsubscribe(); // this refresh was under way meanwhile: its new token has made the old one worthless
}

//! The notification that follows a user's synchronisation counts as the user's own request.
fv2SyncSource FV2AppStateModel::effectiveSource(fv2SyncSource source) {
    logRelease("syncCommsAsync -> source is ", caseName(source));
    if (source != fv2SyncSource::Service) {
        logRelease("syncCommsAsync -> source was not .Service");
        return source;
    }
    if (!m_state.syncORMUserInitiated) {
        logRelease("syncCommsAsync -> not user initiated proxy sync");
        return source;
    }
    logRelease("syncCommsAsync -> handling. user initiated proxy sync");
    m_state.syncORMUserInitiated = false;
    return fv2SyncSource::User;
}

void FV2AppStateModel::scheduleUnpromptedRefresh() {
    const bool expected = m_notificationsArrive && jsonParser.state() != kNoValidAnswer;
    m_unpromptedRefresh = m_outside.timers.after(expected ? kHeartbeat : kUnpromptedRefresh, [this] {
        m_unpromptedRefresh.reset();
        syncCommsAsync(true, fv2SyncSource::Service, false);
    });
}

void FV2AppStateModel::syncProxyAsync(fv2SyncSource source, bool alertOnFailure) {
    logRelease("syncProxyAsync() in");
    const bool wasActive = std::exchange(m_state.syncORMActive, true);
    updateFromModel(false, fv2SyncSource::None);
    if (!proxySyncSemaphore.tryWait()) {
        logRelease("WARNING: ignored overlapped sync attempt (proxy)");
        m_state.syncORMActive = wasActive;
        updateFromModel(false, fv2SyncSource::None);
        logRelease("syncProxyAsync() out.");
        return;
    }
    logRelease("++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC++PSYNC");
    if (source == fv2SyncSource::User) {
        logRelease("appModel->syncProxyAsync -> setting last action for user click (",
                   caseName(m_state.lastActionStored), ")");
        m_state.syncORMUserInitiated = true;
        m_state.syncORMUserInitiatedAction = m_state.lastActionStored;
    }
    auto job = [&service = m_outside.service, request = proxySyncRequest(m_state.userID, m_state.commsToken)] {
        logRelease("Syncing proxy.");
        const CommandResult result = genericResult(service.exchange(request), fv2Alert::FailedProxySync);
        logRelease("syncProxyAsync() syncProxy() done.");
        return result;
    };
    m_outside.dispatch.run(m_owner, std::move(job), [this, alertOnFailure](const CommandResult& result) {
        finishProxySync(alertOnFailure, result);
    });
    logRelease("syncProxyAsync() out.");
}

void FV2AppStateModel::finishProxySync(bool alertOnFailure, const CommandResult& result) {
    proxySyncSemaphore.signal();
    m_state.syncORMActive = false;
    if (result.ok)
        m_appDelegate->updateMenu(); // the service's notification brings the rest
    else
        updateFromModel(false, fv2SyncSource::None);
    if (alertOnFailure && !result.ok && isMainWindowOpen())
        doAlert(fv2Window::Main, result.errorCode, result.alert);
}

void FV2AppStateModel::unsubscribeFromNotifications() {
    logRelease("Unsubscribe from notifications.");
    m_wantsNotifications = false;
    m_unpromptedRefresh.reset();
    sendUnsubscribe();
}

void FV2AppStateModel::sendUnsubscribe() {
    m_outside.dispatch.toWorker(
        [&service = m_outside.service, request = unsubscribeRequest(m_state.userID, m_state.commsToken)] {
            static_cast<void>(service.exchange(request));
        });
}

void FV2AppStateModel::unsubscribeAtExit() {
    logRelease("Unsubscribe from notifications.");
    m_alive.reset();
    m_outside.service.cancel();
    m_outside.dispatch.toWorker(
        [&service = m_outside.service, request = unsubscribeRequest(m_state.userID, m_state.commsToken)] {
            static_cast<void>(service.farewell(request));
        });
}

bool FV2AppStateModel::IsDNDMode() const {
    const bool disturbs = m_outside.doNotDisturb();
    logRelease("IsDNDMode() returning ", disturbs);
    return disturbs;
}

bool FV2AppStateModel::isMainWindowOpen() const {
    return m_wndDelegate != nullptr && m_wndDelegate->isOpen(fv2Window::Main);
}

void FV2AppStateModel::updateFromModel(bool checkAction, fv2SyncSource syncSource) {
    if (m_appDelegate == nullptr)
        std::abort();
    m_appDelegate->menuBarStatusItem().show(m_state.getMenuBarStatusIcon(), m_state.overallState);
    m_appDelegate->updateMenu();
    updateWindows();

    logRelease("appModel->updateFromModel syncSource == ", caseName(syncSource));
    const bool actionRequired = std::exchange(m_state.isActionRequired, false);
    const bool mainWindowOpen = isMainWindowOpen();
    const bool sourceAllows = syncSource == fv2SyncSource::Startup || syncSource == fv2SyncSource::User ||
                              (syncSource == fv2SyncSource::Service && !mainWindowOpen);
    if (!sourceAllows) {
        logRelease("appModel->updateFromModel -> not checked for action required due to source");
        return;
    }
    logRelease("appModel->updateFromModel -> may need to perform action");
    if (!checkAction || !actionRequired) {
        logRelease("appModel->updateFromModel -> no action required");
        return;
    }
    const bool userInitiated = syncSource == fv2SyncSource::User;
    if (userInitiated && mainWindowOpen) {
        m_wndDelegate->selectProtectionStatusPage();
        logRelease("appModel->updateFromModel -> updating ui page");
    }
    logRelease("appModel->updateFromModel -> performing action");
    performAction(m_state.lastActionStored, userInitiated);
}

void FV2AppStateModel::updateWindows() {
    logRelease("updateModelSempahore - wait (update from model)");
    const SemaphoreHold hold(updateModelSemaphore);
    logRelease("updateModelSempahore - waited (update from model)");
    if (isMainWindowOpen()) {
        logRelease("updateModelSempahore - using ", m_wndDelegate->mainWindowDescription());
        m_wndDelegate->updateMainWindow();
    }
    if (m_wndDelegate != nullptr)
        m_wndDelegate->closeUnneededPasswordWindows();
    logRelease("updateModelSempahore - signal (update from model)");
}

} // namespace fv2
