// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2AccountName.h"

#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace fv2 {

std::string accountName() {
    passwd entry{};
    passwd* found = nullptr;
    std::vector<char> texts(1024);
    while (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) == ERANGE && texts.size() < 1024 * 1024)
        texts.resize(2 * texts.size());
    return found == nullptr ? std::string() : entry.pw_name;
}

} // namespace fv2
