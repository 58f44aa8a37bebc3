// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2AppConfigModel.h"

#include <cstdlib>
#include <string_view>

namespace fv2 {

//! A size of the configuration, in device-independent pixels. A screen can't be built without it: the program ends.
inline int requiredInteger(const FV2AppConfigModel& appConfigModel, std::string_view name) {
    const auto value = appConfigModel.integer(name);
    if (!value)
        std::abort();
    return *value;
}

} // namespace fv2
