// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"

#include <chrono>
#include <optional>
#include <string>

namespace fv2 {

//! Tells the administrator through the system log why the light is red: when it turns so, when the reason changes, and
//! after an hour again. Main thread only.
class FV2RedReport {
public:
    void update(const FV2AppState& state, std::chrono::steady_clock::time_point now);

private:
    std::string m_told; //!< the last reason
    std::optional<std::chrono::steady_clock::time_point> m_when;
};

} // namespace fv2
