// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2WindowFrame.h"

#include "platform/FV2XcbReply.h"

#include <QGuiApplication>
#include <QWindow>

#include <string_view>
#include <xcb/xcb.h>

namespace fv2 {

namespace {

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const FV2XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

} // namespace

void askForFrame(QWindow& window, bool dark) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const connection = x11 == nullptr ? nullptr : x11->connection();
    if (connection == nullptr)
        return;
    const xcb_atom_t variant = atomNamed(connection, "_GTK_THEME_VARIANT");
    const xcb_atom_t text = atomNamed(connection, "UTF8_STRING");
    const auto handle = static_cast<xcb_window_t>(window.winId());
    constexpr std::string_view kDark = "dark";
    if (variant == XCB_ATOM_NONE || text == XCB_ATOM_NONE)
        return;
    if (dark)
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, handle, variant, text, 8, kDark.size(), kDark.data());
    else
        xcb_delete_property(connection, handle, variant);
    xcb_flush(connection);
}

} // namespace fv2
