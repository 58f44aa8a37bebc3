// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/LogFile.h"

#include "base/UniqueFd.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>

namespace fv2 {

namespace {

std::string homeDirectory() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/')
        return home;
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found == nullptr ? std::string() : found->pw_dir;
}

struct Path {
    std::mutex mutex;
    std::string text;
};

//! Never destroyed: threads may log to the very end.
Path& rememberedPath() {
    static auto& path = *new Path();
    return path;
}

std::string workedOutPath() {
    return homeDirectory() + "/logs/mac-fv2-ui.log";
}

struct Facts {
    mode_t mode;
    uid_t owner;
    std::uint32_t names;
    off_t size;
};

//! Not by fstat: from Linux 6.13 on, asking for a file's times makes its next write slower.
std::optional<Facts> factsOf(int fd) {
    struct statx status {};
    if (::statx(fd, "", AT_EMPTY_PATH, STATX_TYPE | STATX_UID | STATX_NLINK | STATX_SIZE, &status) != 0)
        return std::nullopt;
    return Facts{status.stx_mode, status.stx_uid, status.stx_nlink, static_cast<off_t>(status.stx_size)};
}

std::size_t writeAll(int fd, std::string_view text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n > 0)
            written += static_cast<std::size_t>(n);
        else if (n == 0 || errno != EINTR)
            break;
    }
    return written;
}

} // namespace

std::string logFilePath() {
    Path& path = rememberedPath();
    const std::lock_guard lock(path.mutex);
    if (path.text.empty())
        path.text = workedOutPath();
    return path.text;
}

void rememberLogFilePath() {
    Path& path = rememberedPath();
    const std::lock_guard lock(path.mutex);
    path.text = workedOutPath();
}

void outliveFileSizeLimit() {
    struct sigaction action {};
    action.sa_handler = [](int) {}; // unlike SIG_IGN not inherited
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &action, nullptr);
}

bool appendToLogFile(const std::string& path, std::string_view text) {
    // Without O_NONBLOCK a named pipe at the path would hold the caller until somebody reads it.
    const UniqueFd file(
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    static const uid_t us = ::getuid();
    const auto before = file ? factsOf(file.get()) : std::nullopt;
    if (!before || !S_ISREG(before->mode) || before->owner != us || before->names > 1)
        return false;
    const std::size_t written = writeAll(file.get(), text);
    if (written == text.size())
        return true;
    const auto after = factsOf(file.get());
    const bool onlyOurs = after && after->size == before->size + static_cast<off_t>(written);
    if (written > 0 && onlyOurs)
        static_cast<void>(::ftruncate(file.get(), before->size) == 0);
    return false;
}

bool deleteLogFile(const std::string& path) {
    return ::unlink(path.c_str()) == 0;
}

} // namespace fv2
