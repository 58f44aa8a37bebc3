// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/SecretBuffer.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace fv2::service {

struct Credentials {
    std::string username;
    SecretBuffer password;
};

struct Request {
    std::string command;
    uid_t uid = 0;
    std::string token; //!< empty when the request carries none
    std::optional<Credentials> credentials;
};

//! Whether no further bytes can make `text` a message: its object is closed, or it never was an object.
//! Messages have no terminator, so this is what tells a half that is still under way from a whole.
[[nodiscard]] bool isWhole(std::string_view text);

//! None unless `text` is one object with a command and a user, and every other field that is used has its type.
[[nodiscard]] std::optional<Request> decodeRequest(std::string_view text);

} // namespace fv2::service
