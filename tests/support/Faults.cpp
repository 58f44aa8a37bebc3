// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "support/Faults.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <span>
#include <sys/socket.h>
#include <sys/stat.h>

namespace fv2::test {
namespace {
thread_local std::vector<Fault>* currentPlan = nullptr;

//! How many bytes a call may take, `size` as a rule; nothing when it fails.
std::optional<std::size_t> granted(const char* call, std::size_t size = 0) {
    const Fault* fault = nullptr;
    for (Fault& each : currentPlan == nullptr ? std::span<Fault>() : std::span(*currentPlan))
        if (each.call == call && ++each.seen >= each.nth && each.seen < each.nth + each.times)
            fault = &each;
    if (fault == nullptr)
        return size;
    errno = fault->error;
    return fault->error == Fault::kShort ? std::optional(std::min<std::size_t>(size, 2)) : std::nullopt;
}

} // namespace

Faults::Faults(std::vector<Fault> plan)
    : m_plan(std::move(plan)) {
    currentPlan = &m_plan;
}

Faults::~Faults() {
    currentPlan = nullptr;
}

bool Faults::happened() const {
    return std::ranges::all_of(m_plan, [](const Fault& fault) { return fault.seen >= fault.nth; });
}

std::ostream& operator<<(std::ostream& out, const Fault& fault) {
    return out << (fault.error == Fault::kShort ? "short" : ::strerrorname_np(fault.error)) << " of " << fault.call
               << ' ' << fault.nth << ", times " << fault.times;
}

} // namespace fv2::test

// The linker lets the program's calls of x() end in __wrap_x(), from where __real_x() leads on.
#define FV2_FAILING(name, parameters, arguments)                                                                       \
    extern "C" int __real_##name parameters;                                                                           \
    extern "C" int __wrap_##name parameters {                                                                          \
        return fv2::test::granted(#name) ? __real_##name arguments : -1;                                               \
    }
#define FV2_FAILING_OR_SHORT(name, parameters, arguments)                                                              \
    extern "C" ssize_t __real_##name parameters;                                                                       \
    extern "C" ssize_t __wrap_##name parameters {                                                                      \
        const auto granted = fv2::test::granted(#name, size);                                                          \
        return granted ? __real_##name arguments : -1;                                                                 \
    }

FV2_FAILING(accept4, (int fd, sockaddr* address, socklen_t* length, int flags), (fd, address, length, flags))
FV2_FAILING(bind, (int fd, const sockaddr* address, socklen_t length), (fd, address, length))
FV2_FAILING(chmod, (const char* path, mode_t mode), (path, mode))
FV2_FAILING(connect, (int fd, const sockaddr* address, socklen_t length), (fd, address, length))
FV2_FAILING(eventfd, (unsigned value, int flags), (value, flags))
FV2_FAILING(ftruncate, (int fd, off_t size), (fd, size))
FV2_FAILING(getsockopt, (int fd, int level, int name, void* value, socklen_t* length), (fd, level, name, value, length))
FV2_FAILING(listen, (int fd, int backlog), (fd, backlog))
FV2_FAILING(open, (const char* path, int flags, mode_t mode), (path, flags, mode))
FV2_FAILING(poll, (pollfd * set, nfds_t count, int timeout), (set, count, timeout))
FV2_FAILING(setsockopt, (int fd, int level, int name, const void* value, socklen_t size),
            (fd, level, name, value, size))
FV2_FAILING(socket, (int domain, int type, int protocol), (domain, type, protocol))
FV2_FAILING(statx, (int folder, const char* path, int flags, unsigned mask, struct statx* status),
            (folder, path, flags, mask, status))
FV2_FAILING(unlink, (const char* path), (path))
FV2_FAILING_OR_SHORT(recv, (int fd, void* buffer, std::size_t size, int flags), (fd, buffer, *granted, flags))
FV2_FAILING_OR_SHORT(send, (int fd, const void* buffer, std::size_t size, int flags), (fd, buffer, *granted, flags))
FV2_FAILING_OR_SHORT(write, (int fd, const void* buffer, std::size_t size), (fd, buffer, *granted))

extern "C" int __real_close(int fd);
extern "C" int __wrap_close(int fd) {
    const int result = __real_close(fd);
    return fv2::test::granted("close") ? result : -1;
}
