// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/StatusJson.h"

#include "commands/ServiceStatus.h"
#include "model/FV2StatesTable.h"
#include "platform/FV2InstanceLock.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2Settings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace fv2 {

namespace {

using nlohmann::ordered_json;

constexpr int kSchema = 1;

struct StateName {
    std::int64_t state;
    std::string_view name;
};

// Those of docs/status.schema.json. The interpreter turns state 11 into 0; one that is not listed shows no message.
constexpr std::array kStateNames{
    StateName{kNoValidAnswer, "unreachable"},
    StateName{0, "bad-configuration"},
    StateName{1, "not-encrypted"},
    StateName{2, "not-encrypted"},
    StateName{3, "password-wanted-to-encrypt"},
    StateName{4, "encryption-starting"},
    StateName{5, "encrypting"},
    StateName{7, "password-wanted-to-decrypt"},
    StateName{8, "decryption-starting"},
    StateName{9, "decrypting"},
    StateName{12, "managed-elsewhere"},
    StateName{13, "managed-elsewhere"},
};
constexpr std::string_view kNoMessage = "ok";

constexpr std::string_view nameOfState(std::int64_t state) {
    for (const StateName& each : kStateNames)
        if (each.state == state)
            return each.name;
    return kNoMessage;
}
static_assert(std::ranges::none_of(kOrmStatesDictionary,
                                   [](const FV2_ORM_State& row) { return nameOfState(row.state) == kNoMessage; }));

ordered_json orNull(bool isKnown, ordered_json value) {
    return isKnown ? std::move(value) : ordered_json();
}

ordered_json messagesOf(const FV2AppState& identified, const FV2AppState& translated) {
    ordered_json messages = ordered_json::array();
    for (std::size_t i = 0; i < identified.statusMessageList.size(); ++i) {
        const FV2StatusMesssageListItem& message = identified.statusMessageList[i];
        messages.push_back({{"id", message.Text},
                            {"title", translated.statusMessageList[i].Title},
                            {"level", nameOf(message.statusType)}});
    }
    return messages;
}

} // namespace

std::string statusJson(std::string_view reply) {
    const FV2QtStrings strings(FV2QtStrings::preferredLanguages(examineSettings().settings.uiLanguage));
    const auto [state, number] = interpretedStatus(reply, identifierTexts(), isoTime);
    const InterpretedStatus translated = interpretedStatus(reply, strings, isoTime);
    const bool isValid = number != kNoValidAnswer;
    const ordered_json status{
        {"schema", kSchema},
        {"light", nameOf(state.overallState)},
        {"state", {{"number", orNull(isValid, number)}, {"name", nameOfState(number)}}},
        {"progress", orNull(isValid, state.encryptionProgress)},
        {"messages", messagesOf(state, translated.state)},
        {"sync", orNull(isValid, {{"ok", state.syncORMOK},
                                  {"active", state.syncORMActive},
                                  {"last", orNull(state.lastORMSync != kNotTold, state.lastORMSync)}})},
        {"agent", {{"running", FV2InstanceLock().isHeldByOther()}, {"version", FV2_VERSION}}},
        {"service", {{"version", orNull(state.version != kNotTold, state.version)}}},
    };
    return status.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

} // namespace fv2
