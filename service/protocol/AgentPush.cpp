// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/AgentPush.h"

#include "comms/PeerPolicy.h"
#include "protocol/Request.h"
#include "protocol/UnixSocket.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <system_error>

namespace fv2::service {

namespace {

constexpr std::string_view notification = R"({ "command": "status_changed" })";
constexpr std::size_t longestAnswer = 4096;
constexpr std::chrono::milliseconds busyPause{50};

//! An agent wraps its answer in one pair of quotes.
std::string_view unwrapped(std::string_view answer) {
    if (answer.starts_with('"'))
        answer.remove_prefix(1);
    if (answer.ends_with('"'))
        answer.remove_suffix(1);
    return answer;
}

} // namespace

AgentPush::AgentPush(uid_t uid, std::string path, std::chrono::milliseconds limit)
    : m_uid(uid)
    , m_path(std::move(path))
    , m_deadline(limit)
    , m_socket(makeUnixSocket()) {
}

void AgentPush::prepare(PollSet& set) const {
    if (m_sent) {
        set.want(m_socket.get(), POLLIN);
        set.wakeBy(m_deadline);
    } else {
        // A full backlog can't be polled: try again later.
        set.wakeBy(Deadline::earlier(m_deadline, Deadline(busyPause)));
    }
}

PushResult AgentPush::advance() {
    PushResult result = m_sent ? PushResult::Pending : reach();
    if (m_sent && result == PushResult::Pending)
        result = readAnswer();
    if (result == PushResult::Pending && m_deadline.passed())
        return fail("no answer");
    return result;
}

PushResult AgentPush::reach() {
    const int error = connectNow(m_socket.get(), m_path);
    if (error == EAGAIN)
        return PushResult::Pending;
    if (error == ENOENT || error == ECONNREFUSED) {
        m_problem = "no agent";
        return PushResult::NoAgent;
    }
    if (error != 0)
        return fail(std::generic_category().message(error));
    const auto listener = peerOf(m_socket.get());
    if (!listener || (*listener != m_uid && *listener != 0))
        return fail("another user listens there");
    const ssize_t sent = ::send(m_socket.get(), notification.data(), notification.size(), MSG_NOSIGNAL);
    if (sent != static_cast<ssize_t>(notification.size()))
        return fail("hung up");
    m_sent = true;
    return PushResult::Pending;
}

PushResult AgentPush::readAnswer() {
    std::array<char, longestAnswer> chunk; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by recv
    const ssize_t count = ::recv(m_socket.get(), chunk.data(), chunk.size(), 0);
    if (count < 0)
        return errno == EAGAIN || errno == EINTR ? PushResult::Pending : fail("hung up");
    m_answer.append(chunk.data(), static_cast<std::size_t>(count));
    if (count == 0 && m_answer.empty())
        return fail("hung up");
    if (count == 0 || m_answer.size() >= longestAnswer || isWhole(unwrapped(m_answer)))
        return judgeAnswer();
    return PushResult::Pending;
}

PushResult AgentPush::judgeAnswer() {
    const auto answer = nlohmann::json::parse(unwrapped(m_answer), nullptr, false);
    if (!answer.is_object() || !answer.contains("result") || !answer["result"].is_number_integer())
        return fail("answer not understood");
    return answer["result"] == 0 ? PushResult::Answered : fail("not handled");
}

PushResult AgentPush::fail(std::string problem) {
    m_problem = std::move(problem);
    return PushResult::Failed;
}

} // namespace fv2::service
