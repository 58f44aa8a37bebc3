// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/UniqueFd.h"

#include <string>

namespace fv2 {

//! At most one process of a user holds it; the kernel gives it back when that process ends, however it ends.
class FV2InstanceLock {
public:
    //! "fv2-agent.lock" in $XDG_RUNTIME_DIR or /run/user/<number>, the home folder itself, or a file in /tmp: the first
    //! whose folder is there and ours. Only in /tmp can somebody else be first.
    [[nodiscard]] static std::string defaultPath();

    explicit FV2InstanceLock(std::string path = defaultPath())
        : m_path(std::move(path)) {}

    enum class Attempt { Taken, HeldByOther, Impossible };

    //! Never waits. Impossible when the file can't be had at all: a stranger's, a link, no folder.
    [[nodiscard]] Attempt tryTake();

    //! By its holder: a short text for whoever finds the lock held. Lost where the lock is a folder.
    void leaveNote(const std::string& text) const;
    //! What the holder has left, 512 bytes at most; nothing where nobody can tell.
    [[nodiscard]] std::string note() const;

    //! Looks without taking it: a process that starts at the same instant tries again. False where nobody can tell.
    [[nodiscard]] bool isHeldByOther() const;

private:
    std::string m_path;
    UniqueFd m_file;
};

} // namespace fv2
