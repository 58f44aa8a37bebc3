// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/ExaminedSettings.h"

#include "platform/FV2Settings.h"

namespace fv2 {

ExaminedSettings examinedSettings() {
    const FV2ExaminedSettings examined = examineSettings();
    ExaminedSettings shown;
    for (const FV2SettingsOrigin& each : examined.origins)
        shown.origins.emplace_back(each.key, "\"" + each.value + "\" (" + each.from + ")");
    for (const FV2SettingsMistake& mistake : examined.mistakes)
        shown.mistakes.push_back(mistake.description());
    return shown;
}

} // namespace fv2
