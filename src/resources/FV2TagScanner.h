// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fv2 {

//! One opening tag. Positions count in the plain text; a character is a code point: each byte that is not of the form
//! 10xxxxxx counts one.
struct FV2Tag {
    std::string text;               //!< from "<" to ">", both included
    std::size_t start = 0;          //!< in characters
    std::size_t byteOffset = 0;     //!< of the same place, in bytes, before unclosed tags are put back
    std::optional<std::size_t> end; //!< in characters; none while unclosed

    friend bool operator==(const FV2Tag&, const FV2Tag&) = default;
};

//! The plain text, and the closed tags with the newest first. A failed scan has the text up to the failure and no tags.
struct FV2ScannedText {
    std::string text;
    std::vector<FV2Tag> tags;

    friend bool operator==(const FV2ScannedText&, const FV2ScannedText&) = default;
};

inline constexpr std::size_t kTagScannerCapacity = 65535;

//! Takes the tags out of a text and decodes its entities. Reads up to the first zero byte; the cost grows with the
//! length alone, whatever the text. The scan fails
//! - at a piece between two tags of 4095 bytes or more, entities not yet decoded,
//! - at a tag of more than 4094 bytes; the piece before it is in the text,
//! - at a piece that, decoded, would leave no byte of the capacity free for a terminating zero,
//! - at an unclosed tag that doesn't fit back into the text; those put back before it stay.
//! Only bytes count: the text may be cut inside a character, or hold what is no UTF-8 at all.
[[nodiscard]] FV2ScannedText scanTags(std::string_view markup, std::size_t capacity = kTagScannerCapacity);

//! The text of a mark-up where no link can be followed: without tags, and without a last line that is nothing but a
//! link.
[[nodiscard]] std::string textWithoutLinks(std::string_view markup);

} // namespace fv2
