// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2CapsLock.h"

#include "platform/FV2XcbReply.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <optional>
#include <utility>
#include <xcb/xcb.h>

namespace fv2 {

namespace {

//! Lock's bit in the modifiers that X11 and Wayland tell.
constexpr quint32 kLock = XCB_MOD_MASK_LOCK;

std::optional<bool> askServer() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const connection = x11 == nullptr ? nullptr : x11->connection();
    if (connection == nullptr)
        return std::nullopt;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const FV2XcbReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr));
    return reply == nullptr ? std::nullopt : std::optional((reply->mask & kLock) != 0);
}

//! A key comes with the modifiers from before it. The press that switches the lock off still has it, as has the
//! release.
std::optional<bool> readKey(const QKeyEvent& key) {
    const bool before = (key.nativeModifiers() & kLock) != 0;
    if (key.key() != Qt::Key_CapsLock)
        return before;
    return key.type() == QEvent::KeyPress ? std::optional(!before) : std::nullopt;
}

} // namespace

FV2CapsLock::FV2CapsLock(QObject* parent)
    : QObject(parent)
    , m_on(askServer().value_or(false)) {
    qGuiApp->installEventFilter(this);
}

bool FV2CapsLock::eventFilter(QObject* object, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (object->isWindowType() && (isKey || event->type() == QEvent::FocusIn)) {
        auto on = askServer();
        if (!on && isKey)
            on = readKey(*static_cast<QKeyEvent*>(event));
        setOn(on.value_or(m_on));
    }
    return false;
}

void FV2CapsLock::setOn(bool on) {
    if (std::exchange(m_on, on) != on)
        Q_EMIT changed(on);
}

} // namespace fv2
