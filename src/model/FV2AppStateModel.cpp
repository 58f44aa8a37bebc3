// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2AppStateModel.h"

#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "model/FV2AlertTable.h"
#include "model/FV2StatesTable.h"

#include <cstdlib>

namespace fv2 {

namespace {

fv2AppCommand commandFor(fv2Window passwordWindow) {
    return passwordWindow == fv2Window::Password_Encrypt ? fv2AppCommand::EnterEncPassword
                                                         : fv2AppCommand::EnterDecPassword;
}

fv2Window passwordWindowFor(fv2AppCommand command) {
    return command == fv2AppCommand::EnterEncPassword ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt;
}

} // namespace

FV2AppStateModel::FV2AppStateModel(FV2ModelPorts ports, std::int64_t userId)
    : m_ports(std::move(ports))
    , m_state(m_ports.strings, userId, m_ports.computerName)
    , jsonParser(m_ports.strings, m_ports.mediumDate)
    , m_refreshes(m_ports.dispatch, m_ports.timers, m_ports.service, userId, m_owner, refreshEvents())
    , m_unprompted(
          m_ports.timers,
          [this](bool alertOnFailure) {
              // Like a notification, but asked for by neither user nor service.
              m_refreshes.request(
                  {.checkAction = true, .source = fv2SyncSource::Service, .alertOnFailure = alertOnFailure});
          },
          [this] { m_listener.rebindIfPathIsGone(); })
    , m_proxySync(proxySyncPorts())
    , m_prompt(promptPorts())
    , m_handOver(handOverPorts())
    , m_inbox(
          m_ports.dispatch, m_ports.timers, m_owner,
          {.tryToStartRefresh = [this] { return m_refreshes.tryToStartPushed(); },
           .requestRefresh =
               [this] { m_refreshes.request({.checkAction = true, .source = fv2SyncSource::Service, .pushed = true}); },
           .showMainWindow = [this] { m_appDelegate->menuShowMainWindow(); }})
    , m_listener(m_ports.makeAppSocket(), backgroundThreadSemaphore,
                 {.received = [this](fv2JsonCommand command) { m_inbox.received(command); },
                  .bound =
                      [this](bool bound) {
                          m_ports.dispatch.toMain(whileAlive(m_owner, [this, bound] { m_unprompted.setBound(bound); }));
                      }},
                 m_ports.bindAgainAfter) {
}

FV2RefreshCycle::Events FV2AppStateModel::refreshEvents() {
    return {.begins =
                [this](const FV2RefreshOrder& order) {
                    if (order.pushed)
                        m_inbox.refreshBegins();
                },
            .token = [this](const std::string& token) { m_state.commsToken = token; },
            .finished = [this](const FV2RefreshOrder& order, const DecodedStatus& status,
                               bool counts) { finishRefresh(order, status, counts); }};
}

FV2ProxySync::Ports FV2AppStateModel::proxySyncPorts() {
    return {.dispatch = m_ports.dispatch,
            .timers = m_ports.timers,
            .service = m_ports.service,
            .state = m_state,
            .owner = m_owner,
            .show = [this] { updateFromModel(false, fv2SyncSource::None); },
            .succeeded = [this] { m_appDelegate->proxySyncSucceeded(); },
            .failed =
                [this](const CommandResult& result, fv2SyncSource source, bool alertOnFailure) {
                    if (alertOnFailure)
                        alertOnMainWindow(result);
                    if (source == fv2SyncSource::User)
                        m_appDelegate->userSyncFailed();
                    m_unprompted.ask(false); // the service may have forgotten our token
                },
            .mayAskUnprompted = [this] { return m_unprompted.isOn(); },
            .isMainWindowOpen = [this] { return isMainWindowOpen(); }};
}

FV2PasswordPrompt::Ports FV2AppStateModel::promptPorts() {
    return {.timers = m_ports.timers,
            .wish = [this](fv2Window kind) { return passwordWish(kind); },
            .open =
                [this](fv2Window kind) {
                    m_wndDelegate->openWindow(kind, false);
                    return m_wndDelegate->isOpen(kind);
                },
            .isKeptShut = [this](fv2Window kind) { m_appDelegate->passwordWindowKeptShut(kind); },
            .doNotDisturb = [this] { return m_ports.doNotDisturb(); },
            .whenQuietIsKnown =
                [this](std::function<void()> job) { m_ports.whenQuietIsKnown(whileAlive(m_owner, std::move(job))); }};
}

FV2PasswordHandOver::Ports FV2AppStateModel::handOverPorts() {
    return {.dispatch = m_ports.dispatch,
            .service = m_ports.service,
            .passwords = m_ports.passwords,
            .state = m_state,
            .owner = m_owner,
            .tokenWanted = [this] { m_unprompted.ask(false); },
            .unanswered = [this] { m_unprompted.askLater(false); }};
}

void FV2AppStateModel::syncCommsAsync(bool checkAction, fv2SyncSource source, bool alertOnFailure) {
    logRelease("syncCommsAsync() in.");
    if (source == fv2SyncSource::Moved)
        m_unprompted.resume();
    m_dueAction.refreshIsRequested(source);
    if (source != fv2SyncSource::Service) // which needs no other sign that our socket is there
        m_listener.rebindIfPathIsGone();
    m_refreshes.request({.checkAction = checkAction,
                         .source = source,
                         .alertOnFailure = alertOnFailure,
                         .pushed = source == fv2SyncSource::Service});
    logRelease("syncCommsAsync() out.");
}

void FV2AppStateModel::finishRefresh(const FV2RefreshOrder& order, const DecodedStatus& status, bool counts) {
    m_dueAction.refreshEnds(order.source);
    if (counts) {
        jsonParser.apply(status, m_state);
        m_prompt.dropUnwanted();
    }
    logRelease("ORM - appModel updateFromModel calling UpdateStatusMessages");
    static_cast<void>(jsonParser.UpdateStatusMessages(m_state));
    logRelease("ORM - appModel updateFromModel called UpdateStatusMessages");
    m_redReport.update(m_state, m_ports.timers.now());
    updateFromModel(order.checkAction, FV2DueAction::effectiveSource(order, m_state));
    if (counts && order.alertOnFailure && !status.result.ok)
        alertOnMainWindow(status.result);
    m_unprompted.setWorking(m_state.percent().has_value());
    if (m_unprompted.isOn())
        m_unprompted.askLater(jsonParser.state() != kNoValidAnswer && !m_state.commsToken.empty());
    else
        sendUnsubscribe(); // this refresh was under way meanwhile: its new token has made the old one worthless
}

void FV2AppStateModel::unsubscribeFromNotifications() {
    logRelease("Unsubscribe from notifications.");
    m_unprompted.stop();
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

void FV2AppStateModel::updateFromModel(bool checkAction, fv2SyncSource syncSource) {
    if (m_appDelegate == nullptr || m_wndDelegate == nullptr)
        std::abort();
    m_appDelegate->stateChanged(m_state);
    logRelease("appModel->updateFromModel syncSource == ", caseName(syncSource));
    const bool mainWindowOpen = isMainWindowOpen();
    if (!m_dueAction.take(m_state, checkAction, syncSource, mainWindowOpen))
        return;
    const bool userInitiated = syncSource == fv2SyncSource::User;
    if (userInitiated && mainWindowOpen) {
        m_wndDelegate->selectProtectionStatusPage();
        logRelease("appModel->updateFromModel -> updating ui page");
    }
    logRelease("appModel->updateFromModel -> performing action");
    performAction(m_state.lastActionStored, userInitiated);
}

void FV2AppStateModel::performAction(fv2AppCommand command, bool userInitiated) {
    switch (command) {
    case fv2AppCommand::RetryComms:
    case fv2AppCommand::GetStatus:
        if (userInitiated)
            syncCommsAsync(true, fv2SyncSource::User, true);
        else
            m_unprompted.ask(true);
        break;
    case fv2AppCommand::EnterEncPassword:
    case fv2AppCommand::EnterDecPassword:
        if (userInitiated)
            m_wndDelegate->openWindow(passwordWindowFor(command), true);
        else
            m_prompt.ask(passwordWindowFor(command));
        break;
    case fv2AppCommand::ProxySync_ORM:
        if (userInitiated)
            syncProxyAsync(fv2SyncSource::User, true);
        else
            m_proxySync.syncUnasked();
        break;
    case fv2AppCommand::NoAction:
    case fv2AppCommand::Initialising_ORM:
        break;
    }
}

FV2PasswordPrompt::Wish FV2AppStateModel::passwordWish(fv2Window kind) const {
    // A service that is starting up reports state 0 at first.
    if (!m_unprompted.isOn() || jsonParser.state() <= 0)
        return FV2PasswordPrompt::Wish::NotNow;
    return m_state.lastActionStored == commandFor(kind) ? FV2PasswordPrompt::Wish::Wanted
                                                        : FV2PasswordPrompt::Wish::NotWanted;
}

void FV2AppStateModel::alertOnMainWindow(const CommandResult& result) {
    if (isMainWindowOpen())
        doAlert(fv2Window::Main, result.errorCode, result.alert);
}

void FV2AppStateModel::doAlert(fv2Window window, std::uint64_t errorCode, fv2Alert alert) {
    const FV2AlertRow* const row = alertRow(alert);
    if (row == nullptr)
        return;
    if (!m_wndDelegate->isOpen(window)) {
        log(FV2LoggingLevel::error, {"doAlert() without a window"});
        return;
    }
    const fv2Window postponed = row->postpones;
    const auto onFirstButton = [this, postponed] {
        if (postponed != fv2Window::None && m_wndDelegate->isOpen(postponed))
            m_wndDelegate->confirmPostponement(postponed);
    };
    const std::int64_t minutes = m_state.postponeTimeInMins;
    const FV2AlertNotes notes{.support = m_ports.support.plainText(m_ports.strings),
                              .postponement = minutes > 0
                                                  ? m_ports.timeFromNow(FV2PasswordPrompt::longestPostponement(minutes))
                                                  : std::string()};
    m_wndDelegate->showAlert(window, alertContent(*row, errorCode, m_ports.strings, notes),
                             whileAlive(m_owner, onFirstButton));
}

void FV2AppStateModel::postponePasswordDialog(bool encrypt) {
    m_prompt.postpone(encrypt ? fv2Window::Password_Encrypt : fv2Window::Password_Decrypt, m_state.postponeTimeInMins);
}

} // namespace fv2
