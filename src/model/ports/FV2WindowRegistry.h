// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"

#include <functional>
#include <string>
#include <vector>

namespace fv2 {

//! An alert as it is shown: plain texts, the first button is the default one.
struct FV2AlertContent {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;
    std::string note = {}; //!< below the text, what is so here and now; may be empty

    friend bool operator==(const FV2AlertContent&, const FV2AlertContent&) = default;
};

//! What the model asks of the windows. Main thread only.
class FV2WindowRegistry {
public:
    virtual ~FV2WindowRegistry() = default;
    [[nodiscard]] virtual bool isOpen(fv2Window kind) const = 0;
    virtual void openWindow(fv2Window kind, bool userInitiated) = 0;
    virtual void selectProtectionStatusPage() = 0;
    //! Shows an alert on the open window of that kind and returns at once; `onFirstButton` runs if that one is chosen.
    virtual void showAlert(fv2Window kind, const FV2AlertContent& content, std::function<void()> onFirstButton) = 0;
    //! Tells the open password window of that kind that its user may postpone.
    virtual void confirmPostponement(fv2Window kind) = 0;
};

} // namespace fv2
