// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2BusValue.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace fv2 {

//! Whether the user wants to be left alone. Answers at once, from what notification daemons have reported; any one that
//! says so is enough, where none does it is false. Main thread only.
class FV2DoNotDisturb {
public:
    FV2DoNotDisturb();

    [[nodiscard]] bool isOn() const;

    //! Calls the job once the desktop has answered at the start, or soon after if it doesn't; in the event loop or at
    //! once.
    void whenKnown(std::function<void()> job);

    //! Called when it may have changed, as far as desktops tell: GNOME and Cinnamon don't.
    void onChange(std::function<void()> changed) { m_changed = std::move(changed); }

private:
    [[nodiscard]] bool isKnown() const;
    void call();

    std::vector<std::function<void()>> m_whenKnown;
    std::function<void()> m_changed = [] {};
    QTimer m_patience;
    FV2BusProperty m_inhibited;
    FV2BusValue m_xfce;
};

} // namespace fv2
