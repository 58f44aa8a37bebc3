// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "SlowTagScanner.h"

#include <cstdint>

//! The first byte is the capacity, the usual one when it is zero; the rest is the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::size_t capacity = data[0] == 0 ? fv2::kTagScannerCapacity : data[0];
    const std::string markup(data + 1, data + size);
    const fv2::FV2ScannedText scanned = fv2::scanTags(markup, capacity);
    fv2::test::require(scanned.text.size() < capacity);
    constexpr auto manyTags = 1000; // the slow one takes a minute for 20,000
    if (std::ranges::count(markup, '<') <= manyTags)
        fv2::test::require(scanned == fv2::test::scanTagsSlowly(markup, capacity));
    return 0;
}
