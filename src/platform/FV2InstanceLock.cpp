// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2InstanceLock.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace fv2 {

std::string FV2InstanceLock::defaultPath() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    struct stat folder {};
    if (runtime != nullptr && runtime[0] == '/' && ::stat(runtime, &folder) == 0 && S_ISDIR(folder.st_mode) &&
        folder.st_uid == ::getuid())
        return std::string(runtime) + "/fv2-agent.lock";
    return "/tmp/ormfv2_ui_" + std::to_string(::getuid()) + ".lock";
}

FV2InstanceLock::Attempt FV2InstanceLock::tryTake() {
    UniqueFd file(::open(m_path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || status.st_uid != ::getuid())
        return Attempt::Impossible;
    while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EINTR)
            return errno == EWOULDBLOCK ? Attempt::HeldByOther : Attempt::Impossible;
    }
    m_file = std::move(file);
    return Attempt::Taken;
}

} // namespace fv2
