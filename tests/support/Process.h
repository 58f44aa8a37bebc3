// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <set>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fv2::test {

//! Runs `job` in a forked child: its exit status, or the negative number of the signal that ended it (SIGALRM after 5
//! s).
inline int inChild(const std::function<int()>& job) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(5);
        ::_exit(job());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

//! Standard output goes to another descriptor for a scope. Expectations belong behind it: their words go there too.
class StandardOutputTo {
public:
    explicit StandardOutputTo(int fd) {
        std::fflush(stdout);
        m_saved = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
        ::dup2(fd, STDOUT_FILENO);
    }
    ~StandardOutputTo() {
        ::dup2(m_saved, STDOUT_FILENO);
        ::close(m_saved);
    }
    StandardOutputTo(const StandardOutputTo&) = delete;
    StandardOutputTo& operator=(const StandardOutputTo&) = delete;

private:
    int m_saved = -1;
};

//! Interrupts this process's system calls every millisecond for a scope. Other threads should block SIGALRM.
class SignalStorm {
public:
    SignalStorm() {
        struct sigaction action {};
        action.sa_handler = [](int) {}; // without SA_RESTART
        ::sigaction(SIGALRM, &action, &m_previous);
        const itimerval everyMillisecond{{0, 1000}, {0, 1000}};
        ::setitimer(ITIMER_REAL, &everyMillisecond, nullptr);
    }
    ~SignalStorm() {
        const itimerval never{};
        ::setitimer(ITIMER_REAL, &never, nullptr);
        ::sigaction(SIGALRM, &m_previous, nullptr);
    }
    SignalStorm(const SignalStorm&) = delete;
    SignalStorm& operator=(const SignalStorm&) = delete;

    static void keepOffThisThread() {
        sigset_t alarm;
        sigemptyset(&alarm);
        sigaddset(&alarm, SIGALRM);
        ::pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
    }

private:
    struct sigaction m_previous {};
};

//! The open descriptors; with `inheritedOnly` those that a program started now would get.
inline std::set<int> openDescriptors(bool inheritedOnly = false) {
    std::set<int> all;
    for (int fd = 0; fd < 1024; ++fd) {
        const int flags = ::fcntl(fd, F_GETFD);
        if (flags >= 0 && !(inheritedOnly && (flags & FD_CLOEXEC) != 0))
            all.insert(fd);
    }
    return all;
}

} // namespace fv2::test
