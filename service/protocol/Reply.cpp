// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/Reply.h"

#include <nlohmann/json.hpp>

namespace fv2::service {

namespace {

using OrderedJson = nlohmann::ordered_json;

//! Texts that an operator typed may be no UTF-8: those bytes are replaced.
std::string write(const OrderedJson& reply) {
    return reply.dump(-1, ' ', false, OrderedJson::error_handler_t::replace);
}

} // namespace

std::string tokenReply(const std::string& token) {
    return write({{"result", true}, {"success", true}, {"error_code", 0}, {"token", token}});
}

std::string statusReply(const EngineStatus& status) {
    OrderedJson reply{{"result", true},
                      {"error_code", 0},
                      {"status",
                       {{"state", status.state},
                        {"progress", status.progress},
                        {"uuid", status.uuid},
                        {"version", status.version},
                        {"sync_active", status.syncActive ? 1 : 0},
                        {"sync_ok", status.syncOk ? 1 : 0},
                        {"sync_last", status.syncLast}}}};
    if (status.postponeMinutes)
        reply["policy"]["postponecredentialmins"] = *status.postponeMinutes;
    return write(reply);
}

std::string outcomeReply(const EngineOutcome& outcome) {
    return write({{"result", outcome.accepted}, {"success", outcome.accepted}, {"error_code", outcome.errorCode}});
}

} // namespace fv2::service
