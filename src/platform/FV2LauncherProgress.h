// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace fv2 {

//! The progress that docks and task bars draw on the program's icon. Main thread only; never waits for the bus.
class FV2LauncherProgress {
public:
    //! Percent, none takes the progress away. Sends nothing for what is shown already.
    void show(std::optional<int> percent);

private:
    std::optional<int> m_shown;
};

} // namespace fv2
