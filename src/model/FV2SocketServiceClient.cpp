// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2SocketServiceClient.h"

#include "comms/FV2ServiceSocketComms.h"

namespace fv2 {

std::string FV2SocketServiceClient::exchange(std::string_view request) {
    return m_stop->isRaised() ? std::string() : FV2ServiceSocketComms(m_stop).sendAndReceive(request);
}

std::string FV2SocketServiceClient::exchangeSecret(const SecretText& request) {
    const PeerPolicy trusted = m_credentialsToRootOnly ? PeerPolicy::rootOnly() : PeerPolicy::rootOrSelf();
    return m_stop->isRaised() ? std::string()
                              : FV2ServiceSocketComms(m_stop, {}, trusted).sendAndReceive(request.text());
}

std::string FV2SocketServiceClient::farewell(std::string_view request) {
    constexpr CommsTimeouts brief{.attempts = 1, .perAttempt = std::chrono::milliseconds(500)};
    return FV2ServiceSocketComms(std::make_shared<const StopSignal>(), brief).sendAndReceive(request);
}

} // namespace fv2
