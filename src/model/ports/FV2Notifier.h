// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace fv2 {

//! What one notification of the desktop says and offers; plain texts.
struct FV2Notification {
    struct Action {
        std::string name;
        std::string title;
    };

    std::string title;
    std::string text;
    bool isUrgent = false; //!< stays until it is answered
    std::vector<Action> actions = {};
};

//! Shows one notification at a time. Main thread only; returns at once.
class FV2Notifier {
public:
    //! Called in the event loop, and for the notification that is shown only.
    struct Events {
        std::function<void()> shown;
        //! The user has chosen an action, "default" for the notification itself. The token, where the desktop gives
        //! one, lets a window come to the front.
        std::function<void(const std::string& action, const std::string& activationToken)> chosen;
        std::function<void()> closed; //!< by the user or the desktop
    };

    virtual ~FV2Notifier() = default;
    //! Replaces the one that is shown.
    virtual void show(FV2Notification notification, Events events) = 0;
    virtual void withdraw() = 0;
};

} // namespace fv2
