// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2SessionDisplays.h"

#include <cstdlib>

namespace fv2 {

namespace {

std::string_view displayIn(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

//! ":0.1" is a screen of ":0".
std::string_view withoutScreen(std::string_view display) {
    const std::size_t colon = display.rfind(':');
    return colon == std::string_view::npos ? display : display.substr(0, display.find('.', colon));
}

struct Displays {
    std::string_view wayland, x11;
};

Displays split(std::string_view text) {
    const std::size_t end = text.find('\n');
    return end == std::string_view::npos ? Displays{} : Displays{text.substr(0, end), text.substr(end + 1)};
}

} // namespace

std::string sessionDisplays() {
    return std::string(displayIn("WAYLAND_DISPLAY")) + '\n' + std::string(withoutScreen(displayIn("DISPLAY")));
}

bool isOtherSession(std::string_view one, std::string_view other) {
    const Displays first = split(one);
    const Displays second = split(other);
    const bool bothKnown =
        !(first.wayland.empty() && first.x11.empty()) && !(second.wayland.empty() && second.x11.empty());
    const bool sameWayland = !first.wayland.empty() && first.wayland == second.wayland;
    const bool sameX11 = !first.x11.empty() && first.x11 == second.x11;
    return bothKnown && !sameWayland && !sameX11;
}

} // namespace fv2
