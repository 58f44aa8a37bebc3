// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/JsonExtent.h"

#include <algorithm>

namespace fv2 {

void JsonExtent::take(std::string_view piece) {
    for (const char c : piece) {
        if (m_inString) {
            if (m_escaped)
                m_escaped = false;
            else if (c == '\\')
                m_escaped = true;
            else if (c == '"')
                m_inString = false;
        } else if (c == '"') {
            m_inString = true;
        } else if (c == '{' || c == '[') {
            m_opened = true;
            m_deepest = std::max(m_deepest, ++m_depth);
        } else if (c == '}' || c == ']') {
            --m_depth;
        }
    }
}

} // namespace fv2
