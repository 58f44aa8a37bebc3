// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2JsonParserORM.h"
#include "model/FV2RefreshGate.h"
#include "model/ports/FV2Dispatch.h"
#include "model/ports/FV2ServiceClient.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace fv2 {

//! Who wants a refresh, and what is to follow from its answer.
struct FV2RefreshOrder {
    bool checkAction = false;
    fv2SyncSource source = fv2SyncSource::None;
    bool alertOnFailure = false;
    bool pushed = false; //!< a notification of the service asks for it
};

//! Asks the service for a token and the status on a worker. Orders of one source merge while a refresh of theirs waits
//! to start, and starts are spaced. A later request outranks an earlier one, whenever it is answered; a failed exchange
//! counts until a better answer is read. Main thread only, but for tryToStartPushed().
class FV2RefreshCycle {
public:
    //! Called on the main thread, unless the owner has died by then.
    struct Events {
        //! A refresh begins, so that what happens from here on needs another one. On the thread that starts it.
        std::function<void(const FV2RefreshOrder&)> begins;
        //! A token counts from here on; empty when the service gave none.
        std::function<void(const std::string&)> token;
        //! A refresh is over. `counts`: its status is the newest that was read.
        std::function<void(const FV2RefreshOrder&, const DecodedStatus&, bool counts)> finished;
    };

    //! All references outlive this object and the workers.
    FV2RefreshCycle(FV2Dispatch& dispatch, FV2TimerService& timers, FV2ServiceClient& service, std::int64_t userId,
                    std::weak_ptr<const void> owner, Events events);

    void request(const FV2RefreshOrder& order);

    //! Any thread: hands a refresh that a notification asks for to a worker without waiting for main, where none has to
    //! wait. False, and nothing has happened, where one has.
    [[nodiscard]] bool tryToStartPushed();

private:
    //! The token in one answer.
    struct Token {
        std::uint64_t number = 0; //!< grows with the moment at which it was asked for
        bool answered = false;
        std::string text;
    };
    struct Answer {
        std::optional<Token> token; //!< none when it has been told before
        std::uint64_t statusNumber = 0;
        bool statusAnswered = false;
        DecodedStatus status;
    };
    //! The current token, read by workers.
    struct Known {
        std::mutex mutex;
        std::string token;
    };
    //! The refreshes of one source.
    struct Lane {
        FV2RefreshOrder waiting;
        std::unique_ptr<FV2RefreshGate> gate;
    };

    void start(Lane& lane, const FV2RefreshOrder& order);
    void takeToken(const Token& token);
    void finish(Lane& lane, const FV2RefreshOrder& order, const Answer& answer);

    FV2Dispatch& m_dispatch;
    FV2ServiceClient& m_service;
    const std::int64_t m_userId;
    const std::weak_ptr<const void> m_owner;
    const Events m_events;
    std::array<Lane, 5> m_lanes; //!< by source
    const std::shared_ptr<std::atomic<std::uint64_t>> m_counter = std::make_shared<std::atomic<std::uint64_t>>(0);
    std::uint64_t m_newestToken = 0;
    std::uint64_t m_newestStatus = 0;
    const std::shared_ptr<Known> m_known = std::make_shared<Known>();
};

} // namespace fv2
