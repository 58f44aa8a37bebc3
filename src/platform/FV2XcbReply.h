// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <memory>

namespace fv2 {

struct FreeXcbReply {
    void operator()(void* reply) const { std::free(reply); }
};

//! What the X server has answered; xcb allocates it for the caller.
template <class Reply>
using FV2XcbReply = std::unique_ptr<Reply, FreeXcbReply>;

} // namespace fv2
