// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//! blaster SENDERS NOTIFICATIONS: sends notifications to the agent's socket, one a connection, each as soon as the
//! sender's last one was answered. Prints how many were answered in a second.
#include "bare_sockets.h"

#include <chrono>
#include <thread>
#include <vector>

namespace {

void notifyOften(long count) {
    for (long i = 0; i < count; ++i) {
        const int peer = bare::connectedTo(bare::agentSocket());
        bare::send(peer, bare::kNotification);
        if (bare::received(peer) != bare::kAnswer) {
            std::fputs("a notification was not answered\n", stderr);
            std::exit(EXIT_FAILURE);
        }
        ::close(peer);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    const long senders = argc == 3 ? std::strtol(argv[1], nullptr, 10) : 0;
    const long count = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 0;
    if (senders < 1 || count < senders) {
        std::fputs("usage: blaster SENDERS NOTIFICATIONS\n", stderr);
        return 2;
    }
    const auto started = std::chrono::steady_clock::now();
    std::vector<std::jthread> threads;
    for (long i = 0; i < senders; ++i)
        threads.emplace_back(notifyOften, count / senders);
    threads.clear();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - started;
    std::printf("%.0f\n", static_cast<double>(count) / took.count());
}
