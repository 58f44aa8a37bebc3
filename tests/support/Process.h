// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <pthread.h>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fv2::test {

//! Runs `job` in a forked child: its exit status, or the negative number of the signal that ended it (SIGALRM after 5
//! s). On a thread of its own: a child has its parent's thread_local objects, but not the timers that they stand for.
inline int inChild(const std::function<int()>& job) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(5);
        int status = 0;
        std::thread([&] { status = job(); }).join();
        ::_exit(status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

//! Interrupts the system calls of the thread that makes it every millisecond for a scope.
class SignalStorm {
public:
    SignalStorm() {
        struct sigaction action {};
        action.sa_handler = [](int) {}; // without SA_RESTART
        ::sigaction(SIGUSR1, &action, nullptr);
        m_thread = std::jthread([target = ::pthread_self()](const std::stop_token& stop) {
            for (; !stop.stop_requested(); ::usleep(1000))
                ::pthread_kill(target, SIGUSR1);
        });
    }

private:
    std::jthread m_thread;
};

//! The open descriptors; with `inheritedOnly` those that a program started now would get.
inline std::set<int> openDescriptors(bool inheritedOnly = false) {
    std::set<int> all;
    for (int fd = 0; fd < 1024; ++fd)
        if (const int flags = ::fcntl(fd, F_GETFD); flags >= 0 && !(inheritedOnly && (flags & FD_CLOEXEC) != 0))
            all.insert(fd);
    return all;
}

} // namespace fv2::test
