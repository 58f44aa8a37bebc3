// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/UniqueFd.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace fv2 {

//! Standard output for log lines: never waits for whoever reads it, and every line begins at a line's start. One thread
//! at a time.
class Console {
public:
    //! Writes a line, which ends with a line feed, or drops it. How many were dropped is written before the next one
    //! that finds room.
    void write(std::string_view line);

private:
    //! What standard output turned out to be at the first line: something that never blocks, a socket, a pipe or
    //! terminal that we could open a second time, or one that we couldn't.
    enum class Kind { Unknown, Plain, Socket, Own, Foreign };

    void lookAtIt();
    [[nodiscard]] bool hasRoom() const;
    //! As write(), but blocks for a moment at most.
    ssize_t writeOnce(std::string_view text);
    //! Removes what could be written from the text's beginning.
    void writeFrom(std::string_view& text);

    Kind m_kind = Kind::Unknown;
    UniqueFd m_own;     //!< opened by us: others still want to block
    std::string m_rest; //!< of a line that has been written in part
    unsigned long m_dropped = 0;
    std::optional<Deadline> m_pause; //!< after a write that had to be interrupted
};

} // namespace fv2
