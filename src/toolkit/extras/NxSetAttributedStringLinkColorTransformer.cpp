// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxSetAttributedStringLinkColorTransformer.h"

#include "resources/NxDesign.h"
#include "toolkit/NxQtColor.h"

namespace fv2 {

NxAttributedString NxSetAttributedStringLinkColorTransformer::transformedValue(NxAttributedString text) {
    const QColor colour = toQColor(NxDesign::sharedDesign().getDesignColor(NxDesignColor::Link, 1));
    text.changeLinks([&](NxAttributedString::Attributes& attributes) { attributes.textColor = colour; });
    return text;
}

} // namespace fv2
