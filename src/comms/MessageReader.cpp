// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/MessageReader.h"

namespace fv2 {

MessageReader::State MessageReader::take(std::string_view chunk) {
    m_byteCount += chunk.size();
    if (m_byteCount > m_cap)
        return State::TooLong;
    const std::string_view text = chunk.substr(0, chunk.find('\0'));
    m_text += text;
    m_extent.take(text);
    const bool mayBeSplit = m_byteCount > singleSendSize;
    const bool ended = mayBeSplit ? m_extent.isClosed() : chunk.size() < chunkSize;
    return ended ? State::Whole : State::Reading;
}

} // namespace fv2
