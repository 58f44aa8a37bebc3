// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"

#include <algorithm>
#include <span>

namespace fv2 {

//! Green, yellow or red: the worst type among the messages, Green when there is none.
[[nodiscard]] constexpr fv2StatusStateType trafficLight(std::span<const FV2StatusMesssageListItem> messages) {
    fv2StatusStateType worst = fv2StatusStateType::Green;
    for (const FV2StatusMesssageListItem& message : messages)
        worst = std::max(worst, message.statusType);
    return worst;
}

} // namespace fv2
