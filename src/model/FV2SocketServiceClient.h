// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"
#include "comms/PeerPolicy.h"
#include "model/ports/FV2ServiceClient.h"

#include <memory>

namespace fv2 {

//! The service client over the service's real socket.
class FV2SocketServiceClient final : public FV2ServiceClient {
public:
    //! `credentialsToRootOnly`: a service of the user's own gets no password.
    explicit FV2SocketServiceClient(bool credentialsToRootOnly)
        : m_credentialsToRootOnly(credentialsToRootOnly) {}

    [[nodiscard]] std::string exchange(std::string_view request) override;
    [[nodiscard]] std::string exchangeSecret(const SecretText& request) override;
    [[nodiscard]] std::string farewell(std::string_view request) override;
    void cancel() override { m_stop->raise(); }

private:
    [[nodiscard]] std::string ask(std::string_view request, const PeerPolicy& trusted);

    const bool m_credentialsToRootOnly;
    std::shared_ptr<const StopSignal> m_stop = std::make_shared<const StopSignal>();
};

} // namespace fv2
