// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2OnceForUser.h"

#include "base/UniqueFd.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>

namespace fv2 {

namespace {

//! Relative paths in the variable count for nothing, as the directory specification wants it.
std::filesystem::path stateFolder() {
    for (const auto& [variable, below] : {std::pair("XDG_STATE_HOME", ""), std::pair("HOME", ".local/state")})
        if (const char* const value = std::getenv(variable);
            value != nullptr && std::string_view(value).starts_with('/'))
            return std::filesystem::path(value) / below / "fv2-agent";
    return {};
}

} // namespace

bool FV2OnceForUser::isStillToCome() const {
    std::error_code error;
    return !std::filesystem::exists(stateFolder() / m_name, error);
}

void FV2OnceForUser::remember() const {
    const std::filesystem::path folder = stateFolder();
    std::error_code error;
    if (folder.empty())
        return;
    std::filesystem::create_directories(folder, error);
    const UniqueFd file(::open((folder / m_name).c_str(), O_CREAT | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, 0600));
}

} // namespace fv2
