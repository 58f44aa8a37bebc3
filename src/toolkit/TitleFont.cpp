// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/TitleFont.h"

#include <QFontInfo>

namespace fv2 {

QFont titleFont(QFont text, double points) {
    text.setPointSizeF(QFontInfo(text).pointSizeF() + points);
    text.setBold(true);
    return text;
}

} // namespace fv2
