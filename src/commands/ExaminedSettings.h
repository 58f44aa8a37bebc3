// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace fv2 {

//! The administrator's settings as the options show them.
struct ExaminedSettings {
    std::vector<std::pair<std::string, std::string>> origins; //!< each key, and where its value comes from
    std::vector<std::string> mistakes;                        //!< "file:line: text"
};

//! Reads all files anew.
[[nodiscard]] ExaminedSettings examinedSettings();

} // namespace fv2
