// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2Records.h"
#include "model/FV2AppState.h"
#include "resources/OxTranslatedString.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace fv2 {

class FV2JsonParserBase {};

//! A status answer, read but not yet applied.
struct DecodedStatus {
    CommandResult result;
    std::optional<FV2EISResponse> response;
};

//! Seconds since 1970-01-01 00:00 UTC as date and time of medium length in the user's language; empty when there is no
//! such date.
using MediumDateFormat = std::function<std::string(std::int64_t)>;

//! Turns the service's status answer into the model's fields, messages and traffic light. Main thread, but for
//! decodeStatus().
class FV2JsonParserORM final : public FV2JsonParserBase {
public:
    //! `strings` must outlive the parser.
    FV2JsonParserORM(const OxStringBundle& strings, MediumDateFormat mediumDate)
        : m_strings(strings)
        , m_mediumDate(std::move(mediumDate)) {}

    //! decodeStatus() and apply() in one.
    CommandResult ParseStatus(std::string_view answer, FV2AppState& model);

    //! Pure, any thread.
    [[nodiscard]] static DecodedStatus decodeStatus(std::string_view answer);
    //! Writes all that the status tells and evaluates which action it calls for.
    void apply(const DecodedStatus& decoded, FV2AppState& model);

    //! Rebuilds the messages of the current state; returns their traffic light.
    fv2StatusStateType UpdateStatusMessages(FV2AppState& model);

    //! The service state of the last answer, -1 when it was no valid one, 0 before the first.
    [[nodiscard]] std::int64_t state() const { return m_state; }

private:
    void AddSyncStatusMessage(FV2AppState& model) const;
    void applyStatus(const FV2EISStatus& status, FV2AppState& model) const;

    const OxStringBundle& m_strings;
    MediumDateFormat m_mediumDate;
    std::int64_t m_state = 0;
};

} // namespace fv2
