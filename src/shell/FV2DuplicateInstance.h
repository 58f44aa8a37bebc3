// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2InstanceLock.h"

#include <chrono>

namespace fv2 {

//! Finds out whether another copy of the agent runs for this user and hands over to it. Before anything else is built;
//! blocks for `patience` and one exchange at most.
class FV2DuplicateInstance {
public:
    explicit FV2DuplicateInstance(std::chrono::milliseconds patience = std::chrono::seconds(5))
        : m_patience(patience) {}

    //! True when another copy answered, or holds the lock without answering: this one must end then. False makes this
    //! process the one copy for as long as this object lives.
    [[nodiscard]] bool handleDuplicateInstance();

private:
    [[nodiscard]] bool findAndHandOver();

    std::chrono::milliseconds m_patience;
    FV2InstanceLock m_lock;
};

} // namespace fv2
