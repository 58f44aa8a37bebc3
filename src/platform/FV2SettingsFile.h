// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace fv2 {

struct FV2SettingsMistake {
    std::filesystem::path file;
    std::uint64_t line = 0; //!< 0 where it is not about a line
    std::string text;

    //! "file:line: text"
    [[nodiscard]] std::string description() const;
};

//! One line of a settings file.
struct FV2SettingsLine {
    std::string section;
    std::string key;
    std::string value;
    std::uint64_t number = 0;
};

struct FV2SettingsFile {
    std::vector<FV2SettingsLine> lines;
    std::vector<FV2SettingsMistake> mistakes; //!< of form; the lines may be incomplete then
};

//! Reads sections, keys and values; of 64 KiB at most.
[[nodiscard]] FV2SettingsFile readSettingsFile(const std::filesystem::path& path);

//! The files that count below `root`, the most general one first. Also what can't be looked at or leads nowhere:
//! reading it gives the mistake.
[[nodiscard]] std::vector<std::filesystem::path> settingsFiles(const std::filesystem::path& root);

} // namespace fv2
