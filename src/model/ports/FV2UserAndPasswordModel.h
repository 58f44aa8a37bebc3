// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"

#include <cstdint>
#include <string>

namespace fv2 {

//! What is known of a password after a check.
enum class fv2PasswordCheck : std::uint8_t {
    Right,
    Wrong,
    CannotCheck, //!< nothing: this computer could not tell
};

//! Checks passwords of this computer's accounts.
class FV2UserAndPasswordModel {
public:
    virtual ~FV2UserAndPasswordModel() = default;
    //! Worker threads. Blocks: a wrong password takes seconds, a broken set-up may take for ever.
    [[nodiscard]] virtual fv2PasswordCheck verifyPassword(const std::string& userName,
                                                          const SecretText& password) const = 0;
};

} // namespace fv2
