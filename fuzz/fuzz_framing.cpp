// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "comms/MessageReader.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace fv2::test {
namespace {

constexpr std::size_t kLongest = 70'000;

using Outcome = std::pair<MessageReader::State, std::string>;

//! As the kernel hands one send over: in full chunks up to 32 KiB, from there on in pieces that `seed` chooses.
Outcome read(std::string_view stream, std::size_t cap, unsigned seed) {
    MessageReader reader(cap);
    auto state = MessageReader::State::Reading;
    for (std::size_t at = 0, size = 0; state == MessageReader::State::Reading && at < stream.size(); at += size) {
        seed = seed * 1'103'515'245U + 12'345U;
        size = at < MessageReader::singleSendSize ? MessageReader::chunkSize : 1 + (seed >> 16U) % reader.chunkSize;
        state = reader.take(stream.substr(at, size));
    }
    const std::string text = reader.takeText();
    require((state == MessageReader::State::TooLong) == (reader.byteCount() > cap));
    require(text.size() <= std::min(cap, reader.byteCount()) && reader.byteCount() <= cap + reader.chunkSize);
    require(text.find('\0') == text.npos);
    return {state, text};
}

//! How many bytes there are when the outermost bracket closes for the first time.
std::size_t firstClosing(std::string_view stream) {
    JsonExtent extent;
    for (std::size_t at = 0; at < stream.size(); ++at) {
        extent.take(stream.substr(at, 1));
        if (extent.isClosed())
            return at + 1;
    }
    return std::string_view::npos;
}

} // namespace
} // namespace fv2::test

//! A byte for the cap, one for the pieces, then the stream: there a byte from 0x80 on repeats the one before it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace fv2;
    if (size < 3)
        return 0;
    constexpr std::array<std::size_t, 4> caps{100, 4096, 40'000, 65'536};
    const std::size_t cap = caps.at(data[0] % caps.size());
    std::string stream;
    for (std::size_t at = 2; at < size && stream.size() < test::kLongest; ++at)
        if (data[at] < 0x80 || stream.empty())
            stream += static_cast<char>(data[at]);
        else
            stream.append((data[at] - 0x7FU) * 32, stream.back());

    const test::Outcome one = test::read(stream, cap, data[1]);
    const test::Outcome other = test::read(stream, cap, ~data[1]);
    if (stream.find('\0') != stream.npos)
        return 0; // hides what follows it in its piece
    test::require(stream.starts_with(one.second) && stream.starts_with(other.second));
    const std::size_t closing = test::firstClosing(stream);
    const bool oneMessage = closing == stream.size() || closing == stream.npos;
    if (oneMessage && stream.size() <= cap) {
        const bool isShort = stream.size() <= MessageReader::singleSendSize;
        const bool ends = isShort ? stream.size() % MessageReader::chunkSize != 0 : closing == stream.size();
        test::require(one == other && one.second == stream && ends == (one.first == MessageReader::State::Whole));
    } else if (oneMessage) {
        test::require(one.second.size() + MessageReader::chunkSize >= cap && one.first == other.first);
    }
    return 0;
}
