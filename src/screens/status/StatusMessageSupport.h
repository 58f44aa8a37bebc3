// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2SupportContact.h"
#include "toolkit/NxTextAndLinksView.h"

namespace fv2 {

//! Whom a message's reader can turn to; its links open page or call. Main thread only.
class StatusMessageSupport final : public NxTextAndLinksView {
    Q_OBJECT
public:
    StatusMessageSupport(const FV2SupportContact::Line& line, QWidget* parent = nullptr);

protected:
    void clickedOnLink(int index) override;

private:
    const std::vector<std::string> m_addresses;
};

} // namespace fv2
