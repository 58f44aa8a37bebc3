// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Deadline.h"
#include "base/StopSignal.h"
#include "base/UniqueFd.h"

#include <chrono>
#include <string_view>
#include <sys/types.h>
#include <sys/un.h>

namespace fv2 {

//! A peer's limit for the next chunk of its message.
inline constexpr std::chrono::milliseconds kChunkTime{5000};

//! A new UNIX stream socket: closed on exec, non-blocking, and refuses descriptors. Time limits are those of the polls.
[[nodiscard]] UniqueFd makeStreamSocket();

//! Connects within the deadline. Retries a full backlog until then, less and less often: a blocking connect would have
//! no limit. False leaves the last try's errno.
[[nodiscard]] bool connectStream(int descriptor, const sockaddr_un& address, const Deadline& deadline,
                                 const StopSignal& stop);

//! One send that does not wait; goes on after an interruption and never raises SIGPIPE. The count of bytes taken, or
//! -1.
ssize_t sendOnce(int descriptor, std::string_view text);

//! One receive that does not wait; goes on after an interruption. As recv().
ssize_t receiveNow(int descriptor, char* buffer, std::size_t size);

} // namespace fv2
