// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/SmallFile.h"

#include "base/UniqueFd.h"

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

} // namespace fv2
