// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageItemTextAndLink.h"

namespace fv2 {

void StatusMessageItemTextAndLink::clickedOnLink(int index) {
    if (hasLinkAt(index))
        appModel.performAction(appCommand, true);
}

} // namespace fv2
