// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/SmallFiles.h"

#include "base/UniqueFd.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fv2 {

std::optional<std::string> readSmallFile(const std::filesystem::path& path, std::size_t most) {
    const UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts {};
    if (!file || ::fstat(file.get(), &facts) != 0)
        return std::nullopt;
    if (!S_ISREG(facts.st_mode)) {
        errno = S_ISDIR(facts.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    std::string content(most, '\0');
    std::size_t have = 0;
    while (have < most) {
        const ssize_t got = ::read(file.get(), content.data() + have, most - have);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        have += static_cast<std::size_t>(got);
    }
    content.resize(have);
    return content;
}

std::string unquotedValue(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size())
            ++i;
        out += value[i];
    }
    return out;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

} // namespace fv2
