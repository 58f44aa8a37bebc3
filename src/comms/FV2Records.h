// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace fv2 {

// Decoded texts of the protocol. Every member is optional: a key that is missing or null leaves it empty. A key of
// another JSON type, an integer beyond 64 bits with sign, more than 64 levels of nesting, or a text that isn't a JSON
// object makes the record undecodable. Pure functions, any thread.

struct FV2EISStatus {
    std::optional<std::int64_t> state;
    std::optional<std::int64_t> progress; //!< percent
    std::optional<std::string> uuid;      //!< this and the next as readableText() leaves them
    std::optional<std::string> version;
    std::optional<std::int64_t> sync_active; //!< 1 while a synchronisation runs
    std::optional<std::int64_t> sync_ok;     //!< 1 when the last one succeeded
    std::optional<std::int64_t> sync_last;   //!< seconds since 1970-01-01 00:00 UTC, 0 for never
};

struct FV2EISPolicy {
    std::optional<std::int64_t> postponecredentialmins; //!< minutes
};

struct FV2EISResponse {
    std::optional<std::int64_t> error_code;
    std::optional<FV2EISStatus> status;
    std::optional<FV2EISPolicy> policy;

    [[nodiscard]] static std::optional<FV2EISResponse> decode(std::string_view text);
};

struct FV2AISCommand {
    std::optional<std::string> command;

    [[nodiscard]] static std::optional<FV2AISCommand> decode(std::string_view text);
};

//! The generic answer to any command.
struct FV2AISResponse {
    std::optional<bool> result;
    std::optional<bool> success;
    std::optional<std::int64_t> error_code;

    //! "result" when present, else "success"; an answer with neither is a failure.
    [[nodiscard]] bool ok() const { return result.value_or(success.value_or(false)); }

    [[nodiscard]] static std::optional<FV2AISResponse> decode(std::string_view text);
};

//! The answer to "get_status" as both records.
struct FV2StatusReply {
    std::optional<FV2AISResponse> generic;
    std::optional<FV2EISResponse> response;

    [[nodiscard]] static FV2StatusReply decode(std::string_view text);
};

struct FV2CommsToken {
    std::optional<std::string> token;
    std::optional<bool> success;
    std::optional<std::int64_t> error_code;

    [[nodiscard]] static std::optional<FV2CommsToken> decode(std::string_view text);

    //! The token of an answer that reports no error, else the empty text.
    [[nodiscard]] static std::string tokenOf(std::string_view text);
};

} // namespace fv2
