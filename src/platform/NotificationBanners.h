// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fv2 {

//! Whether this is a session of GNOME or Cinnamon whose notification banners are switched off; false where that
//! desktop's settings are not installed. A local read at every question. Main thread only.
[[nodiscard]] bool notificationBannersAreOff();

} // namespace fv2
