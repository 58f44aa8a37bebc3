// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2AppState.h"

#include "logging/FV2Logging.h"
#include "model/FV2StatusLook.h"

#include <algorithm>

namespace fv2 {

FV2AppState::FV2AppState(const OxStringBundle& strings, std::int64_t realUserId, std::string nameOfComputer)
    : userID(realUserId)
    , computerName(std::move(nameOfComputer)) {
    const std::string unknown = translatedText("IDUS_UNKNOWN", strings);
    version = uuid = lastORMSync = unknown;
    if (computerName.empty())
        computerName = unknown;
}

void FV2AppState::addStatusMessage(fv2StatusStateType statusType, std::string title, std::string text,
                                   fv2AppCommand command, bool fromAIS, bool sendsToAdministrator,
                                   std::optional<int> percent) {
    statusMessageList.push_back(
        {{}, std::move(title), std::move(text), statusType, command, fromAIS, percent, sendsToAdministrator});
}

std::optional<int> FV2AppState::percent() const {
    const auto found = std::ranges::find_if(
        statusMessageList, [](const FV2StatusMesssageListItem& item) { return item.percent.has_value(); });
    return found == statusMessageList.end() ? std::nullopt : found->percent;
}

void FV2AppState::evaluateActionableStatusMessages() {
    const auto found =
        std::find_if(statusMessageList.begin(), statusMessageList.end(),
                     [](const FV2StatusMesssageListItem& item) { return item.command != fv2AppCommand::NoAction; });
    if (found == statusMessageList.end()) {
        isActionRequired = false;
        lastActionStored = fv2AppCommand::NoAction;
        return;
    }
    const bool changed = found->command != lastActionStored;
    if (changed) {
        isActionRequired = true;
        lastActionStored = found->command;
    }
    log(FV2LoggingLevel::release, {std::string(changed ? "evaluateActionableStatusMessages. new last action is ("
                                                       : "evaluateActionableStatusMessages. action not changed (") +
                                   std::string(caseName(lastActionStored)) + ") "});
}

std::string_view FV2AppState::getMenuBarStatusIcon() const {
    const bool isSynchronising = syncORMActive && !syncORMBlocked;
    const std::string_view name = isSynchronising ? "orm_menu_icon_sync" : lookOf(overallState).trayIcon;
    logTrace("getMenuBarStatusIcon returning image: ", name);
    return name;
}

} // namespace fv2
