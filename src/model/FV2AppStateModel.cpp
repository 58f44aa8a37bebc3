// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2AppStateModel.h"

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "model/FV2StatesTable.h"

#include <cstdlib>

namespace fv2 {

namespace {

//! How often the status is asked for while no notification can be expected: the service can't be reached or gives no
//! token, and a restarted one does not know us, or somebody else holds our socket's path.
constexpr std::chrono::seconds kUnpromptedRefresh{60};
//! And otherwise: a service that ended without a word, or came back without its memory, is noticed in the end.
constexpr std::chrono::minutes kHeartbeat{10};

} // namespace

FV2AppStateModel::FV2AppStateModel(Ports ports, std::int64_t userId)
    : m_ports(std::move(ports))
    , m_state(m_ports.strings, userId, m_ports.computerName)
    , jsonParser(m_ports.strings, m_ports.mediumDate)
    , m_refreshes(m_ports.dispatch, m_ports.timers, m_ports.service, userId, m_owner, refreshEvents())
    , m_showGate(m_ports.timers, 1,
                 [this] {
                     m_showIsWanted = false;
                     m_appDelegate->menuShowMainWindow();
                     m_showGate.finished();
                 })
    , m_prompt(promptPorts())
    , m_listener(m_ports.makeAppSocket(), backgroundThreadSemaphore,
                 {.received = [this](fv2JsonCommand command) { onNotification(command); },
                  .bound = [this](bool bound) { m_ports.dispatch.toMain(guarded([this, bound] { onBound(bound); })); }},
                 m_ports.bindAgainAfter) {
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

//! Runs on the listener's thread. Main hears of the first notification only, until the refresh that it asks for begins,
//! and of the first wish to see the window until it is shown.
void FV2AppStateModel::onNotification(fv2JsonCommand command) {
    if (command == fv2JsonCommand::Show) {
        if (!m_showIsWanted.exchange(true))
            m_ports.dispatch.toMain(guarded([this] { m_showGate.request(); }));
    } else if (!m_refreshIsWanted.exchange(true)) {
        // A worker can begin while main is still waking up.
        const bool started = m_refreshes.tryToStartPushed();
        m_ports.dispatch.toMain(guarded([this, started] {
            logRelease("syncCommsAsync() in.");
            if (!started)
                m_refreshes.request({.checkAction = true, .source = fv2SyncSource::Service, .pushed = true});
            logRelease("syncCommsAsync() out.");
        }));
    }
}

void FV2AppStateModel::onBound(bool bound) {
    if (std::exchange(m_notificationsArrive, bound) == bound || !m_wantsNotifications)
        return;
    if (bound)
        refreshUnprompted(false);
    else
        scheduleUnpromptedRefresh(true);
}

FV2RefreshCycle::Events FV2AppStateModel::refreshEvents() {
    return {.begins =
                [this](const FV2RefreshOrder& order) {
                    if (order.pushed)
                        m_refreshIsWanted = false;
                },
            .token = [this](const std::string& token) { m_state.commsToken = token; },
            .finished = [this](const FV2RefreshOrder& order, const DecodedStatus& status,
                               bool counts) { finishRefresh(order, status, counts); }};
}

void FV2AppStateModel::syncCommsAsync(bool checkAction, fv2SyncSource source, bool alertOnFailure) {
    logRelease("syncCommsAsync() in.");
    m_wantsNotifications |= source == fv2SyncSource::Moved;
    m_startupIsUnderWay |= source == fv2SyncSource::Startup;
    if (source != fv2SyncSource::Service) // which needs no other sign that our socket is there
        m_listener.rebindIfPathIsGone();
    m_refreshes.request({.checkAction = checkAction,
                         .source = source,
                         .alertOnFailure = alertOnFailure,
                         .pushed = source == fv2SyncSource::Service});
    logRelease("syncCommsAsync() out.");
}

//! As a notification would, but neither the user nor the service asked for it.
void FV2AppStateModel::refreshUnprompted(bool alertOnFailure) {
    if (!m_wantsNotifications)
        return;
    m_refreshes.request({.checkAction = true, .source = fv2SyncSource::Service, .alertOnFailure = alertOnFailure});
}

void FV2AppStateModel::finishRefresh(const FV2RefreshOrder& order, const DecodedStatus& status, bool counts) {
    if (order.source == fv2SyncSource::Startup)
        m_startupIsUnderWay = false;
    if (counts) {
        jsonParser.apply(status, m_state);
        m_prompt.dropUnwanted();
    }
    logRelease("ORM - appModel updateFromModel calling UpdateStatusMessages");
    static_cast<void>(jsonParser.UpdateStatusMessages(m_state));
    logRelease("ORM - appModel updateFromModel called UpdateStatusMessages");
    updateFromModel(order.checkAction, effectiveSource(order));
    const CommandResult& result = status.result;
    if (counts && order.alertOnFailure && !result.ok && isMainWindowOpen())
        doAlert(fv2Window::Main, result.errorCode, result.alert);
    if (m_wantsNotifications)
        scheduleUnpromptedRefresh(jsonParser.state() != kNoValidAnswer);
    else
        sendUnsubscribe(); // this refresh was under way meanwhile: its new token has made the old one worthless
}

//! The notification that follows a user's synchronisation counts as the user's own request.
fv2SyncSource FV2AppStateModel::effectiveSource(const FV2RefreshOrder& order) {
    logRelease("syncCommsAsync -> source is ", caseName(order.source));
    if (order.source != fv2SyncSource::Service) {
        logRelease("syncCommsAsync -> source was not .Service");
        return order.source;
    }
    if (!order.pushed || !m_state.syncORMUserInitiated) {
        logRelease("syncCommsAsync -> not user initiated proxy sync");
        return order.source;
    }
    logRelease("syncCommsAsync -> handling. user initiated proxy sync");
    m_state.syncORMUserInitiated = false;
    return fv2SyncSource::User;
}

void FV2AppStateModel::scheduleUnpromptedRefresh(bool serviceAnswers) {
    const bool expected = serviceAnswers && m_notificationsArrive && !m_state.commsToken.empty();
    m_unpromptedRefresh = m_ports.timers.after(expected ? kHeartbeat : kUnpromptedRefresh, [this] {
        m_unpromptedRefresh.reset();
        m_listener.rebindIfPathIsGone();
        refreshUnprompted(false);
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
    auto job = [&service = m_ports.service, request = proxySyncRequest(m_state.userID, m_state.commsToken)] {
        logRelease("Syncing proxy.");
        const CommandResult result = genericResult(service.exchange(request), fv2Alert::FailedProxySync);
        logRelease("syncProxyAsync() syncProxy() done.");
        return result;
    };
    m_ports.dispatch.run(m_owner, std::move(job), [this, source, alertOnFailure](const CommandResult& result) {
        finishProxySync(source, alertOnFailure, result);
    });
    logRelease("syncProxyAsync() out.");
}

void FV2AppStateModel::finishProxySync(fv2SyncSource source, bool alertOnFailure, const CommandResult& result) {
    proxySyncSemaphore.signal();
    m_state.syncORMActive = false;
    if (result.ok) {
        m_appDelegate->updateMenu(); // the service's notification brings the rest
        return;
    }
    if (source == fv2SyncSource::User)
        m_state.syncORMUserInitiated = false; // no notification follows that could be the user's
    updateFromModel(false, fv2SyncSource::None);
    if (alertOnFailure && isMainWindowOpen())
        doAlert(fv2Window::Main, result.errorCode, result.alert);
    refreshUnprompted(false); // the service may have forgotten our token
}

void FV2AppStateModel::unsubscribeFromNotifications() {
    logRelease("Unsubscribe from notifications.");
    m_wantsNotifications = false;
    m_unpromptedRefresh.reset();
    sendUnsubscribe();
}

void FV2AppStateModel::sendUnsubscribe() {
    m_ports.dispatch.toWorker(
        [&service = m_ports.service, request = unsubscribeRequest(m_state.userID, m_state.commsToken)] {
            static_cast<void>(service.exchange(request));
        });
}

void FV2AppStateModel::unsubscribeAtExit() {
    logRelease("Unsubscribe from notifications.");
    m_alive.reset();
    m_ports.service.cancel();
    m_ports.dispatch.toWorker(
        [&service = m_ports.service, request = unsubscribeRequest(m_state.userID, m_state.commsToken)] {
            static_cast<void>(service.farewell(request));
        });
}

bool FV2AppStateModel::IsDNDMode() const {
    const bool disturbs = m_ports.doNotDisturb();
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
    const bool mainWindowOpen = isMainWindowOpen();
    const bool sourceAllows = syncSource == fv2SyncSource::Startup || syncSource == fv2SyncSource::User ||
                              (syncSource == fv2SyncSource::Service && !mainWindowOpen);
    const bool actionRequired = m_state.isActionRequired;
    // What may not act leaves the first action to the start-up refresh while that is under way.
    m_state.isActionRequired = actionRequired && m_startupIsUnderWay && !sourceAllows;
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
