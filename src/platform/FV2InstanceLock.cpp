// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2InstanceLock.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fv2 {

namespace {

bool isOurFolder(const std::string& path) {
    struct stat folder {};
    return path.starts_with('/') && ::stat(path.c_str(), &folder) == 0 && S_ISDIR(folder.st_mode) &&
           folder.st_uid == ::getuid();
}

std::string fromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

UniqueFd openLock(const std::string& path) {
    UniqueFd file(::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file && errno == EISDIR)
        file.reset(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return file;
}

} // namespace

std::string FV2InstanceLock::defaultPath() {
    const std::string number = std::to_string(::getuid());
    for (const std::string& folder : {fromEnvironment("XDG_RUNTIME_DIR"), "/run/user/" + number})
        if (isOurFolder(folder))
            return folder + "/fv2-agent.lock";
    const std::string home = fromEnvironment("HOME");
    return isOurFolder(home) ? home : "/tmp/ormfv2_ui_" + number + ".lock";
}

FV2InstanceLock::Attempt FV2InstanceLock::tryTake() {
    UniqueFd file = openLock(m_path);
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

void FV2InstanceLock::leaveNote(const std::string& text) const {
    if (::ftruncate(m_file.get(), 0) == 0) [[maybe_unused]]
        const ssize_t written = ::pwrite(m_file.get(), text.data(), text.size(), 0);
}

std::string FV2InstanceLock::note() const {
    const UniqueFd file(::open(m_path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    std::array<char, 512> text{};
    if (!file || ::fstat(file.get(), &status) != 0 || status.st_uid != ::getuid())
        return {};
    const ssize_t size = ::pread(file.get(), text.data(), text.size(), 0);
    return size <= 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(size));
}

bool FV2InstanceLock::isHeldByOther() const {
    const UniqueFd file(::open(m_path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    return file && ::fstat(file.get(), &status) == 0 && status.st_uid == ::getuid() &&
           ::flock(file.get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace fv2
