// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "logging/FV2LogTarget.h"

#include <string>

namespace fv2 {

//! Widens the shared logger's level set as FV2_LOG_LEVELS says: a comma list of trace, ui, error, release, or all. An
//! unknown word is named on standard error and ignored. Without FV2_LOG_LEVELS the administrator's levels and target
//! hold. Before the first thread.
void applyLogLevelSwitch(const std::string& levels, FV2LogTarget target);

} // namespace fv2
