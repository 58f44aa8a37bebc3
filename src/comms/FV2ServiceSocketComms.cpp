// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2ServiceSocketComms.h"

#include "logging/FV2Logging.h"

namespace fv2 {

FV2ServiceSocketComms::FV2ServiceSocketComms(std::shared_ptr<const StopSignal> stop, CommsTimeouts timeouts,
                                             PeerPolicy trusted)
    : FV2SocketCommsBase("FV2ServiceSocketComms", "/tmp/orm_ui.sock", std::move(trusted), std::move(stop), timeouts) {
    logTrace("FV2_UI_ONLY");
    logTrace("FV2_ORM_ONLY");
}

} // namespace fv2
