// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"

#include <cstdlib>
#include <memory>
#include <string_view>

namespace fv2 {

//! A size of the configuration, in device-independent pixels. A screen can't be built without it: the program ends.
inline int requiredInteger(const std::weak_ptr<FV2AppStateModel>& appModel, std::string_view name) {
    const auto model = appModel.lock();
    if (model == nullptr || model->appConfigModel() == nullptr)
        std::abort();
    const auto value = model->appConfigModel()->integer(name);
    if (!value)
        std::abort();
    return *value;
}

} // namespace fv2
