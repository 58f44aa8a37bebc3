// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace fv2 {

//! The first `most` bytes of a file, or an empty result with errno set: EISDIR for a folder, EINVAL for a pipe or a
//! device, without waiting for either.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::filesystem::path& path, std::size_t most);

} // namespace fv2
