// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2SocketCommsBase.h"

namespace fv2 {

//! The agent's own endpoint, /tmp/ormfv2_ui_<user id>.sock: the running copy listens on it, a second copy hands over.
class FV2AppSocketComms final : public FV2SocketCommsBase {
public:
    explicit FV2AppSocketComms(std::shared_ptr<const StopSignal> stop = std::make_shared<const StopSignal>(),
                               CommsTimeouts timeouts = {});
};

} // namespace fv2
