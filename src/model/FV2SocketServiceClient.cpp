// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2SocketServiceClient.h"

#include "comms/FV2ServiceSocketComms.h"
#include "logging/SystemReport.h"

namespace fv2 {

std::string FV2SocketServiceClient::exchange(std::string_view request) {
    return ask(request, PeerPolicy::rootOrSelf());
}

std::string FV2SocketServiceClient::exchangeSecret(const SecretText& request) {
    return ask(request.text(), m_credentialsToRootOnly ? PeerPolicy::rootOnly() : PeerPolicy::rootOrSelf());
}

std::string FV2SocketServiceClient::ask(std::string_view request, const PeerPolicy& trusted) {
    if (m_stop->isRaised())
        return {};
    FV2ServiceSocketComms comms(m_stop, {}, trusted);
    std::string reply = comms.sendAndReceive(request);
    if (reply.empty() && !m_stop->isRaised() && !comms.failure().empty())
        reportOnce(comms.failure(), "The service can't be reached: " + comms.failure());
    return reply;
}

std::string FV2SocketServiceClient::farewell(std::string_view request) {
    constexpr CommsTimeouts brief{.attempts = 1, .perAttempt = std::chrono::milliseconds(500)};
    return FV2ServiceSocketComms(std::make_shared<const StopSignal>(), brief).sendAndReceive(request);
}

} // namespace fv2
