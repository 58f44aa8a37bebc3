// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "simulation/Console.h"

#include <array>
#include <cerrno>
#include <unistd.h>

namespace fv2::service {

namespace {

constexpr std::size_t longestLine = 4096;

} // namespace

void Console::prepare(PollSet& set) const {
    if (!m_ended)
        set.want(m_fd, POLLIN);
}

void Console::handle(const PollSet& set) {
    if (m_ended || set.ready(m_fd) == 0)
        return;
    std::array<char, longestLine> chunk; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    const ssize_t count = ::read(m_fd, chunk.data(), chunk.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    m_ended = count <= 0;
    if (m_ended)
        m_text += '\n';
    else
        m_text.append(chunk.data(), static_cast<std::size_t>(count));
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = m_text.find('\n', begin)) != std::string::npos; begin = end + 1)
        m_commands.run(std::string_view(m_text).substr(begin, end - begin));
    m_text.erase(0, begin);
    if (m_text.size() > longestLine)
        m_text.clear();
}

void SimulationTimer::prepare(PollSet& set) const {
    if (const auto time = m_simulation.nextTime())
        set.wakeBy(Deadline(std::chrono::ceil<std::chrono::milliseconds>(*time - Deadline::Clock::now())));
}

} // namespace fv2::service
