// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2AppSocketComms.h"

namespace fv2 {

FV2AppSocketComms::FV2AppSocketComms(std::shared_ptr<const StopSignal> stop, CommsTimeouts timeouts)
    : FV2SocketCommsBase("FV2AppSocketComms", "/tmp/ormfv2_ui_" + std::to_string(::getuid()) + ".sock",
                         PeerPolicy::rootOrSelf(), std::move(stop), timeouts) {
}

} // namespace fv2
