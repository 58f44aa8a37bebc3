// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "support/SystemLogLines.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace {

std::mutex mutex;
std::string lines;

} // namespace

// Replaces the C library's.
extern "C" {

int access(const char* path, int mode) {
    const bool isJournal = std::string_view(path).starts_with("/run/systemd/journal");
    return isJournal ? -1 : ::faccessat(AT_FDCWD, path, mode, 0);
}

#if __USE_FORTIFY_LEVEL > 0
void __syslog_chk(int, int, const char* format, ...) {
#else
void syslog(int, const char* format, ...) {
#endif
    std::array<char, 512> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    const std::lock_guard lock(mutex);
    lines.append(text.data()).append("\n");
}
}

std::string fv2::test::takenSystemLog() {
    const std::lock_guard lock(mutex);
    return std::exchange(lines, {});
}
