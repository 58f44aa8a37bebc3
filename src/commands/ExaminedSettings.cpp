// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/ExaminedSettings.h"

#include "platform/FV2Settings.h"

namespace fv2 {

ExaminedSettings examinedSettings() {
    const FV2Settings settings = readSettings();
    return {
        {{"help.host", settings.helpHost}, {"credentials.rootOnly", settings.credentialsToRootOnly ? "true" : "false"}},
        {}};
}

} // namespace fv2
