// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! What became of a wish to the copy that runs.
struct Outcome {
    int status;            //!< the process's exit status
    std::string complaint; //!< one line; empty if the wish was granted
};

// Both need an application object, and start no copy.

//! Lets the running copy ask the service to synchronise; does not wait for the service.
[[nodiscard]] Outcome synchronisedRunningCopy();

//! Ends the running copy and waits until it is gone.
[[nodiscard]] Outcome endedRunningCopy();

} // namespace fv2
