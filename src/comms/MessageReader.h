// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/JsonExtent.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace fv2 {

//! Puts one message together from the chunks of single receive calls. There is no length and no terminator on the wire:
//! a chunk shorter than chunkSize ends the message. Past singleSendSize the kernel may hand one send over in several
//! pieces (the first of 48,832 bytes on Linux 6 with 4 KiB pages), so from there on the message goes on until its
//! outermost JSON bracket closes or the peer ends the stream.
class MessageReader {
public:
    static constexpr std::size_t chunkSize = 2048;
    static constexpr std::size_t singleSendSize = 32 * 1024;

    enum class State { Reading, Whole, TooLong };

    //! A message of more than `cap` bytes is too long; what came before stays in the text.
    explicit MessageReader(std::size_t cap)
        : m_cap(cap) {}

    //! Takes one chunk of at most chunkSize bytes; of its text only what stands before its first zero byte counts.
    State take(std::string_view chunk);

    //! Bytes received so far, those behind a zero byte included.
    [[nodiscard]] std::size_t byteCount() const { return m_byteCount; }
    [[nodiscard]] std::string takeText() { return std::move(m_text); }

private:
    std::size_t m_cap;
    std::size_t m_byteCount = 0;
    std::string m_text;
    JsonExtent m_extent;
};

} // namespace fv2
