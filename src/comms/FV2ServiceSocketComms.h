// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2SocketCommsBase.h"

namespace fv2 {

//! One exchange with the service at /tmp/orm_ui.sock; a fresh object per exchange. Worker threads only.
class FV2ServiceSocketComms final : public FV2SocketCommsBase {
public:
    //! Raising `stop` ends an exchange under way.
    explicit FV2ServiceSocketComms(std::shared_ptr<const StopSignal> stop, CommsTimeouts timeouts = {},
                                   PeerPolicy trusted = PeerPolicy::rootOrSelf());
};

} // namespace fv2
