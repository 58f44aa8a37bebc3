// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>
#include <utility>

namespace fv2 {

//! A file descriptor with one owner; closed when the owner goes.
//! Descriptor 0 counts as none and is never closed: a value of 1 or more is an open descriptor.
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd)
        : m_fd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept
        : m_fd(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        reset(other.release());
        return *this;
    }
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    ~UniqueFd() { reset(); }

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 1; }
    explicit operator bool() const { return isOpen(); }

    //! Gives the descriptor away; the caller closes it.
    [[nodiscard]] int release() { return std::exchange(m_fd, -1); }

    void reset(int fd = -1) {
        if (m_fd >= 1 && m_fd != fd)
            ::close(m_fd);
        m_fd = fd;
    }

private:
    int m_fd = -1;
};

} // namespace fv2
