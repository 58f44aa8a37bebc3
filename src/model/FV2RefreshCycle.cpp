// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2RefreshCycle.h"

#include "comms/FV2Records.h"
#include "comms/FV2Requests.h"
#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"

#include <utility>

namespace fv2 {

namespace {

//! How many refreshes of each source run at a time, in the order of the sources. Two for notifications, so that one may
//! hang; one for each other source, to leave workers to the user.
constexpr std::array<int, 5> kMaxConcurrent{1, 1, 2, 1, 1};

//! Tells why an answer to get_status is no status.
void reportRefusal(const DecodedStatus& status) {
    const auto error = status.response ? status.response->error_code : std::nullopt;
    if (error == 0)
        return;
    const std::string what = error ? "The service answers get_status with error " + std::to_string(*error)
                                   : "No status is in the service's answer to get_status";
    reportStrangerOnce(what, what);
}

} // namespace

FV2RefreshCycle::FV2RefreshCycle(FV2Dispatch& dispatch, FV2TimerService& timers, FV2ServiceClient& service,
                                 std::int64_t userId, std::weak_ptr<const void> owner, Events events)
    : m_dispatch(dispatch)
    , m_service(service)
    , m_userId(userId)
    , m_owner(std::move(owner))
    , m_events(std::move(events)) {
    for (std::size_t source = 0; source < m_lanes.size(); ++source) {
        Lane& lane = m_lanes[source];
        lane.waiting.source = static_cast<fv2SyncSource>(source);
        lane.gate = std::make_unique<FV2RefreshGate>(timers, kMaxConcurrent[source], [this, &lane] {
            start(lane, std::exchange(lane.waiting, {.source = lane.waiting.source}));
        });
    }
}

bool FV2RefreshCycle::tryToStartPushed() {
    constexpr FV2RefreshOrder order{.checkAction = true, .source = fv2SyncSource::Service, .pushed = true};
    Lane& lane = m_lanes.at(static_cast<std::size_t>(order.source));
    if (!lane.gate->tryToStart())
        return false;
    start(lane, order);
    return true;
}

void FV2RefreshCycle::request(const FV2RefreshOrder& order) {
    Lane& lane = m_lanes.at(static_cast<std::size_t>(order.source));
    lane.waiting.checkAction |= order.checkAction;
    lane.waiting.alertOnFailure |= order.alertOnFailure;
    lane.waiting.pushed |= order.pushed;
    lane.gate->request();
}

void FV2RefreshCycle::start(Lane& lane, const FV2RefreshOrder& order) {
    m_events.begins(order);
    auto tellToken = [this, &dispatch = m_dispatch, owner = m_owner](const Token& token) {
        dispatch.toMain([this, owner, token] {
            if (!owner.expired())
                takeToken(token);
        });
    };
    auto ask = [&service = m_service, uid = m_userId, counter = m_counter, known = m_known, tellToken] {
        logRelease("syncCommsAsync -> calling syncCommsDirect()");
        logRelease("syncCommsDirect() in");
        Answer answer;
        Token& token = answer.token.emplace(Token{});
        token.number = ++*counter;
        const std::string tokenReply = service.exchange(getTokenRequest(uid));
        token.answered = !tokenReply.empty();
        token.text = FV2CommsToken::tokenOf(tokenReply);
        // Whatever is sent meanwhile needs it. One that is known already can wait, which saves main a turn.
        if (const std::lock_guard lock(known->mutex); token.text != known->token) {
            tellToken(token);
            answer.token.reset();
        }
        logRelease("_updateStatus in.");
        answer.statusNumber = ++*counter;
        const std::string statusReply = service.exchange(getStatusRequest(uid));
        answer.statusAnswered = !statusReply.empty();
        answer.status = FV2JsonParserORM::decodeStatus(statusReply);
        if (answer.statusAnswered)
            reportRefusal(answer.status);
        logRelease("_updateStatus() out. (result = ", answer.status.result.ok, ")");
        logRelease("syncCommsAsync -> called syncCommsDirect()");
        return answer;
    };
    m_dispatch.run(m_owner, std::move(ask),
                   [this, &lane, order](const Answer& answer) { finish(lane, order, answer); });
}

void FV2RefreshCycle::takeToken(const Token& token) {
    if (token.number < m_newestToken)
        return;
    if (token.answered)
        m_newestToken = token.number;
    {
        const std::lock_guard lock(m_known->mutex);
        m_known->token = token.text;
    }
    m_events.token(token.text);
}

void FV2RefreshCycle::finish(Lane& lane, const FV2RefreshOrder& order, const Answer& answer) {
    lane.gate->finished();
    if (answer.token)
        takeToken(*answer.token);
    const bool counts = answer.statusNumber > m_newestStatus;
    if (counts && answer.statusAnswered)
        m_newestStatus = answer.statusNumber;
    m_events.finished(order, answer.status, counts);
}

} // namespace fv2
