// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace fv2 {

//! Follows the brackets of a JSON text as it arrives, piece by piece, in one pass and without building anything.
//! It judges no syntax: what it calls closed may still be refused by a parser.
class JsonExtent {
public:
    void take(std::string_view piece);

    //! The outermost bracket that was opened has been closed again.
    [[nodiscard]] bool isClosed() const { return m_opened && m_depth <= 0; }
    [[nodiscard]] long deepest() const { return m_deepest; }

private:
    long m_depth = 0;
    long m_deepest = 0;
    bool m_opened = false;
    bool m_inString = false;
    bool m_escaped = false;
};

} // namespace fv2
