// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>

namespace fv2::service {

//! How long and how much a peer may take of the service.
struct Limits {
    std::chrono::milliseconds exchange{10'000};     //!< until a request is whole; again until its reply is read
    std::chrono::milliseconds misbehaviour{60'000}; //!< of a silent or endless reply
    std::chrono::milliseconds linger{2'000};        //!< for the peer to close once it has its reply
    std::chrono::milliseconds push{10'000};         //!< from reaching for an agent to its answer
    std::chrono::milliseconds acceptPause{100};     //!< after a failed accept, so that full tables don't spin the loop
    std::size_t connections = 64;                   //!< further ones wait in the backlog
    std::size_t requestBytes = 64 * 1024;
};

} // namespace fv2::service
