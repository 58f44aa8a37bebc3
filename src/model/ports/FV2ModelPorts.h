// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "comms/FV2SocketCommsBase.h"
#include "model/FV2JsonParserORM.h"
#include "model/ports/FV2Dispatch.h"
#include "model/ports/FV2ServiceClient.h"
#include "model/ports/FV2TimerService.h"
#include "model/ports/FV2UserAndPasswordModel.h"
#include "resources/FV2SupportContact.h"
#include "resources/OxTranslatedString.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace fv2 {

//! What the model is constructed with. All references outlive the model and the workers.
struct FV2ModelPorts {
    FV2Dispatch& dispatch;
    FV2TimerService& timers;
    FV2ServiceClient& service;
    const OxStringBundle& strings;
    MediumDateFormat mediumDate;
    std::string computerName;
    std::function<std::unique_ptr<FV2SocketCommsBase>()> makeAppSocket;
    //! How often to retry a socket path that is taken.
    std::chrono::milliseconds bindAgainAfter = std::chrono::seconds(30);
    //! Whether the desktop asks for silence; answers at once from what is known.
    std::function<bool()> doNotDisturb = [] { return false; };
    //! Calls the job, at once or later, when Do Not Disturb is known: the first status may call for a window.
    std::function<void(std::function<void()>)> whenQuietIsKnown = [](const std::function<void()>& job) { job(); };
    //! None in an agent without a password window.
    const FV2UserAndPasswordModel* passwords = nullptr;
    //! So many minutes from now in the user's language, as "in 60 minutes"; empty where nobody can say it.
    std::function<std::string(std::int64_t minutes)> timeFromNow = [](std::int64_t) { return std::string(); };
    FV2SupportContact support = {};
};

} // namespace fv2
