// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"

#include <string>
#include <string_view>

namespace fv2 {

//! The way to the service. All but cancel() block and run on workers, several at once; cancel() on any thread.
class FV2ServiceClient {
public:
    virtual ~FV2ServiceClient() = default;

    //! One request with all its retries; the reply is empty when it failed.
    [[nodiscard]] virtual std::string exchange(std::string_view request) = 0;
    //! The same for a request with a password; fails when whoever listens may not have one.
    [[nodiscard]] virtual std::string exchangeSecret(const SecretText& request) = 0;
    //! One short attempt, which cancel() leaves alone: the last word before the agent ends.
    [[nodiscard]] virtual std::string farewell(std::string_view request) = 0;
    //! Ends the exchanges under way and lets later ones fail at once.
    virtual void cancel() = 0;
};

} // namespace fv2
