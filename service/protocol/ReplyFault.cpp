// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/ReplyFault.h"

#include <array>
#include <sstream>

namespace fv2::service {

std::string faultText(const ReplyFault& fault) {
    static constexpr std::array<const char*, 8> names{"none", "silent", "slow",    "garbage",
                                                      "half", "close",  "endless", "error"};
    std::ostringstream text;
    text << names.at(static_cast<std::size_t>(fault.kind));
    if (fault.kind == FaultKind::Slow)
        text << ' ' << std::chrono::duration<double>(fault.delay).count();
    if (fault.kind == FaultKind::Error)
        text << ' ' << fault.errorCode;
    return text.str();
}

} // namespace fv2::service
