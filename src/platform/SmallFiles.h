// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace fv2 {

//! The first `most` bytes of a file, or an empty result with errno set: EISDIR for a folder, EINVAL for a pipe or a
//! device, without waiting for either.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::filesystem::path& path, std::size_t most);

//! The value of a shell-like assignment: one pair of quotes taken off, a backslash makes the next character plain.
[[nodiscard]] std::string unquotedValue(std::string_view value);

//! The text without the blanks, tabs and carriage returns at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace fv2
