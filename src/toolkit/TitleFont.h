// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>

namespace fv2 {

//! Of the title above a text in that font: bold and so many points larger.
[[nodiscard]] QFont titleFont(QFont text, double points = 1);

} // namespace fv2
