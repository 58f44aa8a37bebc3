// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/ListeningPlace.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace fv2 {

ListeningPlace::ListeningPlace(const std::string& path)
    : m_file(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC)) {
    struct stat status {};
    if (!m_file || ::fstat(m_file.get(), &status) != 0)
        return;
    m_owner = status.st_uid;
    m_isSocket = S_ISSOCK(status.st_mode);
}

sockaddr_un ListeningPlace::address() const {
    sockaddr_un address{AF_UNIX, {}};
    const std::string path = "/proc/self/fd/" + std::to_string(m_file.get());
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

} // namespace fv2
