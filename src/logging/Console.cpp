// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/Console.h"

#include "base/ThreadAlarm.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <utility>

namespace fv2 {

namespace {

//! So that not every line waits.
constexpr std::chrono::milliseconds kPause{100};

} // namespace

void Console::write(std::string_view line) {
    if (m_kind == Kind::Unknown)
        lookAtIt();
    std::string_view unwritten = m_rest;
    writeFrom(unwritten);
    m_rest = std::string(unwritten);
    if (!m_rest.empty()) {
        ++m_dropped;
        return;
    }
    std::string text(line);
    if (m_dropped > 0)
        text = "(" + std::to_string(m_dropped) + " lines dropped)\n" + text;
    unwritten = text;
    writeFrom(unwritten);
    if (unwritten.size() == text.size()) {
        ++m_dropped;
        return;
    }
    m_dropped = 0;
    m_rest = std::string(unwritten);
}

void Console::lookAtIt() {
    struct stat status {};
    if (::fstat(STDOUT_FILENO, &status) != 0)
        return;
    m_kind = S_ISSOCK(status.st_mode) ? Kind::Socket : Kind::Plain;
    if (!S_ISFIFO(status.st_mode) && !S_ISCHR(status.st_mode))
        return;
    m_own = UniqueFd(::open("/proc/self/fd/1", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    m_kind = m_own ? Kind::Own : Kind::Foreign;
}

void Console::writeFrom(std::string_view& text) {
    while (!text.empty() && hasRoom()) {
        const ssize_t written = writeOnce(text);
        if (written > 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR || m_kind == Kind::Foreign)
            return;
    }
}

//! A pipe without a reader would raise SIGPIPE.
bool Console::hasRoom() const {
    if (m_kind == Kind::Plain || m_kind == Kind::Socket)
        return true;
    if (m_pause && !m_pause->passed())
        return false;
    pollfd console{STDOUT_FILENO, POLLOUT, 0};
    return ::poll(&console, 1, 0) == 1 && console.revents == POLLOUT;
}

ssize_t Console::writeOnce(std::string_view text) {
    if (m_kind == Kind::Socket)
        return ::send(STDOUT_FILENO, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (m_kind != Kind::Foreign)
        return ::write(m_own ? m_own.get() : STDOUT_FILENO, text.data(), text.size());
    // A pipe that has room takes this much at once; a terminal, or a pipe with other writers, may still block.
    const ThreadAlarm alarm;
    text = text.substr(0, PIPE_BUF);
    const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
    const bool interrupted = written < 0 ? errno == EINTR : std::cmp_less(written, text.size());
    if (interrupted)
        m_pause = Deadline(kPause);
    return written;
}

} // namespace fv2
