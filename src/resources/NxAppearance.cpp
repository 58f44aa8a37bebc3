// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/NxAppearance.h"

#include <atomic>

namespace fv2 {

namespace {

std::atomic<bool> isLight{true};

} // namespace

void NxAppearance::setCurrent(std::string_view name) {
    isLight = name == aqua;
}

std::string_view NxAppearance::current() {
    return isLight ? aqua : dark;
}

} // namespace fv2
