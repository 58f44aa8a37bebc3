// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Engine.h"

#include <string>

namespace fv2::service {

//! The service's own refusals; an engine's refusals carry numbers of its own.
enum class ServiceError : std::int64_t { BadRequest = 1, UnknownCommand = 2, OtherUser = 3, BadToken = 4 };

[[nodiscard]] std::string tokenReply(const std::string& token);
[[nodiscard]] std::string statusReply(const EngineStatus& status);
[[nodiscard]] std::string outcomeReply(const EngineOutcome& outcome);

} // namespace fv2::service
