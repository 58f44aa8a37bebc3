// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/LogLevelSwitch.h"

#include "logging/FV2Logging.h"
#include "logging/LogEscape.h"

#include <cstdlib>
#include <iostream>

namespace fv2 {

void applyLogLevelSwitch(const std::string& levels, FV2LogTarget target) {
    const char* list = std::getenv("FV2_LOG_LEVELS");
    if (list == nullptr) {
        FV2Logging::shared().setLevels(parseLogLevels(levels).levels);
        FV2Logging::shared().setTarget(target);
        return;
    }
    const ParsedLogLevels parsed = parseLogLevels(list);
    for (const std::string& word : parsed.unknownWords)
        std::cerr << "fv2-agent: FV2_LOG_LEVELS: unknown level \"" << escapedForLog(word)
                  << "\" (known: trace, ui, error, release, all)\n";
    FV2Logging::shared().setLevels(parsed.levels);
}

} // namespace fv2
