// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/StopSignal.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>

namespace fv2 {

namespace {

//! How often a wait without an eventfd checks whether it should end.
constexpr std::chrono::milliseconds kLookAgain{50};

} // namespace

StopSignal::StopSignal()
    : m_event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
}

void StopSignal::raise() const {
    const int saved = errno;
    m_raised = true;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(m_event.get(), &one, sizeof one);
    errno = saved;
}

fv2Wait StopSignal::waitFor(int fd, short events, const Deadline& deadline) const {
    for (;;) {
        std::array<pollfd, 2> set{{{m_event.get(), POLLIN, 0}, {fd, events, 0}}};
        const Deadline turn = m_event ? deadline : Deadline::earlier(deadline, Deadline(kLookAgain));
        const int ready = ::poll(set.data(), set.size(), turn.pollTimeout());
        if (ready < 0 && errno != EINTR)
            return fv2Wait::Failed;
        if (isRaised())
            return fv2Wait::Stopped;
        if (ready > 0 && set[1].revents != 0)
            return fv2Wait::Ready;
        if (deadline.passed())
            return fv2Wait::TimedOut;
    }
}

} // namespace fv2
