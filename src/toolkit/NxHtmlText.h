// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxAttributedString.h"

namespace fv2 {

//! The words of an HTML text with their fonts and colours; the given font and colour where it says nothing else; black
//! when the colour is invalid. Links, pictures and style sheets from elsewhere are left out: nothing is ever loaded.
//! Only for the application's own texts. Main thread only.
[[nodiscard]] NxAttributedString attributedStringFromHtml(const QString& html, const QFont& font, const QColor& colour);

} // namespace fv2
