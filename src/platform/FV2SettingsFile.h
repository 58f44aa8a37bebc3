// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace fv2 {

struct FV2SettingsMistake {
    std::filesystem::path file;
    std::uint64_t line = 0; //!< 0 where it is not about a line
    std::string text;

    //! "file:line: text", or "file: text"
    [[nodiscard]] std::string description() const;
};

//! One line of a settings file; that of a section has no key.
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

//! Reads a file of 64 KiB at most, to which nobody but root and `administrator` can write.
[[nodiscard]] FV2SettingsFile readSettingsFile(const std::filesystem::path& path, uid_t administrator);

//! The files that count below `root`, the most general one first; also one that can't be looked at or leads nowhere:
//! reading it gives the mistake. Folders that are no folders or can't be read are added to the mistakes.
[[nodiscard]] std::vector<std::filesystem::path> settingsFiles(const std::filesystem::path& root,
                                                               std::vector<FV2SettingsMistake>& mistakes);

} // namespace fv2
