// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"

namespace fv2 {

struct FV2AppState;

//! What follows the model: tray item, its menu and the windows. Main thread only.
class FV2ApplicationDelegate {
public:
    virtual ~FV2ApplicationDelegate() = default;
    //! Shows the state everywhere.
    virtual void stateChanged(const FV2AppState& state) = 0;
    //! A synchronisation has succeeded: the tray menu may offer the next one. The rest follows with the service's
    //! notification.
    virtual void proxySyncSucceeded() = 0;
    //! The service has refused a synchronisation that the user asked for, or did not answer. Has been shown already,
    //! as far as windows show it.
    virtual void userSyncFailed() = 0;
    //! A password is wanted, and its window can't open now; may be told again every minute.
    virtual void passwordWindowKeptShut(fv2Window kind) = 0;
    //! Opens the application window as the tray menu's entry does.
    virtual void menuShowMainWindow() = 0;
};

} // namespace fv2
