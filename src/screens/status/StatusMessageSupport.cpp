// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessageSupport.h"

#include "platform/FV2Browser.h"

#include <algorithm>

namespace fv2 {

StatusMessageSupport::StatusMessageSupport(const FV2SupportContact::Line& line, QWidget* parent)
    : NxTextAndLinksView(parent)
    , m_addresses(line.addresses) {
    setHtmlCode(QString::fromStdString(line.text));
}

void StatusMessageSupport::clickedOnLink(int index) {
    const auto link = std::ranges::find_if(links(), [index](const NxAttributedString::LinkRange& range) {
        return index >= range.start && index < range.end;
    });
    const auto position = static_cast<std::size_t>(link - links().begin());
    if (position < m_addresses.size())
        openContact(m_addresses[position]);
}

} // namespace fv2
