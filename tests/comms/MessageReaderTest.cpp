// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/MessageReader.h"

#include <gtest/gtest.h>

#include <vector>

namespace fv2::test {
namespace {

using State = MessageReader::State;
constexpr std::size_t kMiB = 1024 * 1024;

struct Outcome {
    State state;
    std::size_t taken; //!< bytes given to the reader until it had enough
    std::string text;
};

//! Reads `stream` in full chunks as from one send, behind 32 KiB in chunks of `laterChunks`.
Outcome readIn(std::string_view stream, std::size_t cap, std::size_t laterChunks = MessageReader::chunkSize) {
    MessageReader reader(cap);
    State state = State::Reading;
    std::size_t taken = 0;
    while (state == State::Reading && taken < stream.size()) {
        const std::string_view chunk =
            stream.substr(taken, taken < MessageReader::singleSendSize ? MessageReader::chunkSize : laterChunks);
        taken += chunk.size();
        state = reader.take(chunk);
    }
    EXPECT_EQ(reader.byteCount(), taken);
    return {state, taken, reader.takeText()};
}

//! A JSON text of `size` bytes whose brackets inside strings must not count.
std::string jsonOf(std::size_t size) {
    if (size < 24)
        return std::string(size, '1');
    std::string text = R"({"a":["}]\"}]\\"],"b":")";
    while (text.size() + 2 < size)
        text += text.size() % 100 == 0 ? '}' : 'x';
    return text + "\"}";
}

TEST(MessageReader, EndsAMessageAtItsFirstShortChunk) {
    const std::vector<std::pair<std::size_t, State>> table{
        {1, State::Whole},      {2047, State::Whole}, {2048, State::Reading}, {2049, State::Whole},
        {4096, State::Reading}, {6143, State::Whole}, {32767, State::Whole},  {32768, State::Reading},
        {32769, State::Whole},  {65536, State::Whole}};
    for (const auto& [size, state] : table) {
        const Outcome outcome = readIn(jsonOf(size), kMiB);
        EXPECT_EQ(outcome.state, state) << size;
        EXPECT_EQ(outcome.text, jsonOf(size)) << size;
    }
}

TEST(MessageReader, GoesOnPastOneSendUntilTheJsonCloses) {
    for (const std::size_t size : {32769U, 48'900U, 65540U, 100'000U, 1'048'575U, 1'048'576U})
        for (const std::size_t chunk : {2048U, 1000U, 1U}) {
            const Outcome outcome = readIn(jsonOf(size), kMiB, chunk);
            EXPECT_EQ(outcome.state, State::Whole) << size << " " << chunk;
            EXPECT_EQ(outcome.text, jsonOf(size)) << size << " " << chunk;
        }
    EXPECT_EQ(readIn(std::string(70'000, 'x'), kMiB).state, State::Reading) << "no JSON: goes on to the stream's end";
    EXPECT_EQ(readIn(jsonOf(80'000).substr(0, 79'999), kMiB).state, State::Reading) << "the last bracket is missing";
}

TEST(MessageReader, StopsAtItsCap) {
    struct Case {
        std::size_t cap, size;
        State state;
        std::size_t kept;
    };
    const std::vector<Case> table{{4096, 4095, State::Whole, 4095},      {4096, 4096, State::Reading, 4096},
                                  {4096, 4097, State::TooLong, 4096},    {100, 100, State::Whole, 100},
                                  {100, 101, State::TooLong, 0},         {65536, 65535, State::Reading, 65535},
                                  {65536, 65536, State::Reading, 65536}, {65536, 65537, State::TooLong, 65536},
                                  {kMiB, kMiB, State::Reading, kMiB},    {kMiB, kMiB + 1, State::TooLong, kMiB}};
    for (const Case& each : table) {
        const Outcome outcome = readIn(std::string(each.size, '['), each.cap);
        EXPECT_EQ(outcome.state, each.state) << each.cap << " " << each.size;
        EXPECT_EQ(outcome.text.size(), each.kept) << each.cap << " " << each.size;
    }
}

TEST(MessageReader, CutsEachChunkAtItsZeroByte) {
    std::string stream(5000, 'x');
    stream[10] = '\0';
    stream[2048] = '\0';
    stream[4999] = '\0';
    const Outcome outcome = readIn(stream, kMiB);
    EXPECT_EQ(outcome.state, State::Whole);
    EXPECT_EQ(outcome.taken, 5000U) << "a zero byte ends no message";
    EXPECT_EQ(outcome.text, std::string(10 + 903, 'x'));
}

} // namespace
} // namespace fv2::test
