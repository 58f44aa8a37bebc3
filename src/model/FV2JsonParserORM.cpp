// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2JsonParserORM.h"

#include "logging/FV2Logging.h"
#include "model/FV2StatesTable.h"
#include "model/FV2TrafficLight.h"
#include "resources/FormatText.h"

#include <algorithm>

namespace fv2 {

namespace {

constexpr std::int64_t kBadConfiguration = 0;
constexpr std::int64_t kAlsoBadConfiguration = 11;
constexpr std::int64_t kDefaultPostponeMinutes = 60;

const std::string& textOr(const std::string& text, const std::string& unknown) {
    return text.empty() ? unknown : text;
}

} // namespace

CommandResult FV2JsonParserORM::ParseStatus(std::string_view answer, FV2AppState& model) {
    const DecodedStatus decoded = decodeStatus(answer);
    apply(decoded, model);
    return decoded.result;
}

DecodedStatus FV2JsonParserORM::decodeStatus(std::string_view answer) {
    FV2StatusReply reply = FV2StatusReply::decode(answer);
    return {genericResult(reply.generic, fv2Alert::BadComms), std::move(reply.response)};
}

void FV2JsonParserORM::apply(const DecodedStatus& decoded, FV2AppState& model) {
    const FV2EISResponse response = decoded.response.value_or(FV2EISResponse());
    const FV2EISStatus status = response.status.value_or(FV2EISStatus());
    m_state = response.error_code == 0 ? status.state.value_or(kBadConfiguration) : kNoValidAnswer;
    applyStatus(status, model);
    model.postponeTimeInMins =
        response.policy.value_or(FV2EISPolicy()).postponecredentialmins.value_or(kDefaultPostponeMinutes);
    model.overallState = UpdateStatusMessages(model);
    model.evaluateActionableStatusMessages();
}

void FV2JsonParserORM::applyStatus(const FV2EISStatus& status, FV2AppState& model) const {
    const std::string unknown = translatedText("IDUS_UNKNOWN", m_strings);
    model.syncORMActive = status.sync_active == 1;
    model.syncORMOK = status.sync_ok.value_or(1) == 1;
    model.version = textOr(status.version.value_or(std::string()), unknown);
    model.uuid = textOr(status.uuid.value_or(std::string()), unknown);
    const std::int64_t lastSync = status.sync_last.value_or(0);
    model.lastORMSync = textOr(lastSync == 0 ? std::string() : m_mediumDate(lastSync), unknown);
    model.syncORMEnabled = m_state != kNoValidAnswer && m_state != kBadConfiguration;
    model.encryptionProgress = status.progress.value_or(0);
}

fv2StatusStateType FV2JsonParserORM::UpdateStatusMessages(FV2AppState& model) {
    model.statusMessageList.clear();
    model.syncORMBlocked = false;
    if (m_state == kAlsoBadConfiguration)
        m_state = kBadConfiguration;
    model.serviceState = m_state;

    for (const FV2_ORM_State& row : kOrmStatesDictionary) {
        if (row.state != m_state)
            continue;
        std::string text = translatedText(row.text, m_strings);
        std::optional<int> percent;
        if (row.hasPercentage) {
            percent = static_cast<int>(std::clamp<std::int64_t>(model.encryptionProgress, 0, 100));
            const std::string progress = std::to_string(model.encryptionProgress);
            text = formatText(text, {formatText(translatedText("IDUS_ORM_SM_PERCENT_FMT", m_strings), {progress})});
        }
        model.addStatusMessage(row.statusType, translatedText(row.title, m_strings), std::move(text), row.command, true,
                               row.sendsToAdministrator, percent);
        if (row.command == fv2AppCommand::Initialising_ORM) {
            model.syncORMBlocked = true;
            logRelease("JsonParse_ORM -> UpdateStatusMessages -> will hide proxy sync message due to "
                       "service blocking syncs");
        }
    }
    if (!model.syncORMBlocked)
        AddSyncStatusMessage(model);
    return trafficLight(model.statusMessageList);
}

void FV2JsonParserORM::AddSyncStatusMessage(FV2AppState& model) const {
    if (!model.syncORMActive && model.syncORMOK)
        return;
    model.addStatusMessage(
        fv2StatusStateType::Yellow, translatedText("IDUS_ORM_SM_SYNC", m_strings),
        translatedText(model.syncORMActive ? "IDUS_ORM_SM_SYNC_ACTIVE" : "IDUS_ORM_SM_SYNC_ISSUE", m_strings),
        model.syncORMActive ? fv2AppCommand::NoAction : fv2AppCommand::ProxySync_ORM, false, !model.syncORMActive);
}

} // namespace fv2
