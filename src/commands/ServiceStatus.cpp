// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/ServiceStatus.h"

#include "commands/ExitStatus.h"
#include "comms/FV2Requests.h"
#include "comms/FV2ServiceSocketComms.h"
#include "model/FV2StatesTable.h"
#include "platform/FV2QtStrings.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr CommsTimeouts kPatience{.attempts = 2, .perAttempt = std::chrono::milliseconds(4000)};
constexpr std::array<std::string_view, 3> kLights{"green", "yellow", "red"};

//! The first seconds of the years 1 and 10000.
constexpr std::int64_t kFirstYear = -62'135'596'800;
constexpr std::int64_t kTooLate = 253'402'300'800;

class IdentifierTexts final : public OxStringBundle {
public:
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override {
        return identifier == "IDUS_UNKNOWN" ? std::string(kNotTold) : identifier.substr(identifier.find('_') + 1);
    }
};

} // namespace

std::string askedStatus() {
    return FV2ServiceSocketComms(std::make_shared<const StopSignal>(), kPatience)
        .sendAndReceive(getStatusRequest(::getuid()));
}

InterpretedStatus interpretedStatus(std::string_view reply, const OxStringBundle& strings, MediumDateFormat date) {
    InterpretedStatus status{FV2AppState(strings, ::getuid(), {}), kNoValidAnswer};
    FV2JsonParserORM parser(strings, std::move(date));
    static_cast<void>(parser.ParseStatus(reply, status.state));
    status.number = parser.state();
    return status;
}

const OxStringBundle& identifierTexts() {
    static const IdentifierTexts texts;
    return texts;
}

std::string_view nameOf(fv2StatusStateType light) {
    return kLights.at(static_cast<std::size_t>(light));
}

int exitStatusOf(std::string_view reply) {
    const InterpretedStatus status = interpretedStatus(reply, identifierTexts(), isoTime);
    return status.number == kNoValidAnswer ? kExitUnreachable : static_cast<int>(status.state.overallState);
}

std::string isoTime(std::int64_t secondsSince1970) {
    const std::time_t seconds = secondsSince1970;
    std::tm parts{};
    std::array<char, 80> text{}; // the compiler takes any number to be possible
    if (seconds < kFirstYear || seconds >= kTooLate || ::gmtime_r(&seconds, &parts) == nullptr)
        return {};
    // strftime() writes early years with fewer digits.
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02dZ", parts.tm_year + 1900, parts.tm_mon + 1,
                  parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec);
    return text.data();
}

} // namespace fv2
