// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGuiApplication>

namespace fv2 {

//! Whether the desktop is a Wayland one, also where this program reaches it through an X server.
[[nodiscard]] inline bool isWaylandSession() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

//! Whether this program's own windows are those of a Wayland client.
[[nodiscard]] inline bool isWaylandClient() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace fv2
