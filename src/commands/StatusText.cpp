// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/StatusText.h"

#include "commands/ServiceStatus.h"
#include "model/FV2StatusLook.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2Settings.h"
#include "platform/FV2ThisUser.h"
#include "resources/FV2TagScanner.h"

namespace fv2 {

std::string statusText(std::string_view reply) {
    const FV2QtStrings strings(FV2QtStrings::preferredLanguages(examineSettings().settings.uiLanguage));
    const FV2AppState state = interpretedStatus(reply, strings, mediumDate).state;
    std::string text(nameOf(state.overallState));
    text += ": " + translatedText(lookOf(state.overallState).title, strings) + "\n";
    for (const FV2StatusMesssageListItem& message : state.statusMessageList)
        text += "  " + message.Title + ": " + textWithoutLinks(message.Text) + "\n";
    text += "  " + translatedText("IDUS_MGUI_LAST_SYNC", strings) +
            (state.syncORMActive ? translatedText("IDUS_MGUI_LAST_SYNC_ACTIVE", strings) : state.lastORMSync) + "\n";
    return text;
}

} // namespace fv2
