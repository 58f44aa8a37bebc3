// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace fv2 {

// The request texts, byte for byte: blanks and line feeds are part of the format. A token goes in as a JSON string.

[[nodiscard]] std::string showUiRequest();
[[nodiscard]] std::string getStatusRequest(std::int64_t uid);
[[nodiscard]] std::string getTokenRequest(std::int64_t uid);
[[nodiscard]] std::string proxySyncRequest(std::int64_t uid, std::string_view token);
[[nodiscard]] std::string unsubscribeRequest(std::int64_t uid, std::string_view token);

//! What the agent answers on its own socket: result 0 when the command was understood, else 1. The double quotes around
//! the object are part of the answer.
[[nodiscard]] std::string notificationReply(bool understood);

struct jsonSetPWParams {
    std::string_view username;
    std::string_view password; //!< borrowed from its SecretText
};

struct jsonSetPWCommand {
    std::string_view command = "set_user_credentials";
    std::int64_t uid = 0;
    std::string_view token;
    jsonSetPWParams parameters;

    //! One JSON object on one line, keys in the order of the members.
    [[nodiscard]] SecretText encoded() const;
};

} // namespace fv2
