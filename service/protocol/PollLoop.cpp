// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/PollLoop.h"

#include <algorithm>
#include <cerrno>

namespace fv2::service {

namespace {

class StopWatch final : public PollClient {
public:
    explicit StopWatch(const StopSignal& stop)
        : m_stop(stop) {}
    void prepare(PollSet& set) const override { set.want(m_stop.descriptor(), POLLIN); }
    void handle(const PollSet& set) override { m_stopped = set.ready(m_stop.descriptor()) != 0; }
    [[nodiscard]] bool stopped() const { return m_stopped; }

private:
    const StopSignal& m_stop;
    bool m_stopped = false;
};

} // namespace

bool PollSet::wait() {
    const int ready = ::poll(m_descriptors.data(), m_descriptors.size(), m_wake ? m_wake->pollTimeout() : -1);
    return ready >= 0 || errno == EINTR;
}

short PollSet::ready(int fd) const {
    const auto found = std::ranges::find(m_descriptors, fd, &pollfd::fd);
    return found == m_descriptors.end() ? short{0} : found->revents;
}

bool pollOnce(std::span<PollClient* const> clients) {
    PollSet set;
    for (const PollClient* client : clients)
        client->prepare(set);
    if (!set.wait())
        return false;
    for (PollClient* client : clients)
        client->handle(set);
    return true;
}

bool pollUntilStopped(const StopSignal& stop, std::span<PollClient* const> clients) {
    StopWatch watch(stop);
    std::vector<PollClient*> all(clients.begin(), clients.end());
    all.push_back(&watch);
    while (!watch.stopped()) {
        if (!pollOnce(all))
            return false;
    }
    return true;
}

} // namespace fv2::service
