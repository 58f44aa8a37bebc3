// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"
#include "resources/OxTranslatedString.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fv2 {

//! One status message, its texts translated and formatted.
struct FV2StatusMesssageListItem {
    std::string Link; //!< always empty here: the command travels in `command`
    std::string Title;
    std::string Text;
    fv2StatusStateType statusType = fv2StatusStateType::Green;
    fv2AppCommand command = fv2AppCommand::NoAction;
    bool fromAIS = false;              //!< from the states table, not the synchronisation message
    std::optional<int> percent = {};   //!< of the work that the message tells of, 0 to 100
    bool sendsToAdministrator = false; //!< the text does, so whoever can help is to stand beside it

    friend bool operator==(const FV2StatusMesssageListItem&, const FV2StatusMesssageListItem&) = default;
};

//! Everything the agent knows about the service and the user's situation. Main thread only. The interpreter writes what
//! the status tells and the action memory, the model the rest.
struct FV2AppState {
    //! Texts that have no value yet hold the translated "IDUS_UNKNOWN".
    FV2AppState(const OxStringBundle& strings, std::int64_t realUserId, std::string nameOfComputer);

    std::string commsToken;
    fv2StatusStateType overallState = fv2StatusStateType::Red;
    std::vector<FV2StatusMesssageListItem> statusMessageList;
    bool minimalMode = false;

    bool isActionRequired = false;
    fv2AppCommand lastActionStored = fv2AppCommand::NoAction;

    std::int64_t userID;
    std::string computerName;
    std::string version;
    std::string uuid;

    bool syncORMEnabled = false;
    std::string lastORMSync;
    bool syncORMActive = false;
    bool syncORMOK = true;
    bool syncORMBlocked = false;
    bool syncORMUserInitiated = false;
    fv2AppCommand syncORMUserInitiatedAction = fv2AppCommand::NoAction;

    std::int64_t serviceState = 0;       //!< that the messages are of: -1 without a valid answer, 0 before the first
    std::int64_t encryptionProgress = 0; //!< percent, as the service tells it
    std::int64_t postponeTimeInMins = 0;

    void addStatusMessage(fv2StatusStateType statusType, std::string title, std::string text, fv2AppCommand command,
                          bool fromAIS, bool sendsToAdministrator = false, std::optional<int> percent = {});

    //! How far the service's work on the disk is, while it is at it.
    [[nodiscard]] std::optional<int> percent() const;

    //! Stores the first action in the list; it is required once when it differs from the one stored before.
    void evaluateActionableStatusMessages();

    //! The name of the tray image for this state.
    [[nodiscard]] std::string_view getMenuBarStatusIcon() const;
};

} // namespace fv2
