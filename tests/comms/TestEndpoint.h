// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2SocketCommsBase.h"

namespace fv2::test {

//! An endpoint at a path of the test's own, with short timeouts.
class TestEndpoint final : public FV2SocketCommsBase {
public:
    explicit TestEndpoint(const std::string& path, CommsTimeouts timeouts = {5, std::chrono::milliseconds(300)},
                          PeerPolicy trusted = PeerPolicy::rootOrSelf(),
                          std::shared_ptr<const StopSignal> stop = std::make_shared<const StopSignal>())
        : FV2SocketCommsBase("TestEndpoint", path, std::move(trusted), std::move(stop), timeouts) {}
};

inline PeerPolicy nobodyHere() {
    return {::getuid() + 1};
}

//! A JSON text of `size` bytes whose brackets inside strings must not count.
inline std::string jsonOf(std::size_t size) {
    const std::string begin = R"({"a":["}]\"}]\\"],"b":")";
    return begin + std::string(size - begin.size() - 2, '}') + "\"}";
}

} // namespace fv2::test
