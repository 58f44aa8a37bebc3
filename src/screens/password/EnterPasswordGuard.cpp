// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/password/EnterPasswordGuard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace fv2 {

EnterPasswordGuard::EnterPasswordGuard(QWidget& view)
    : m_view(&view) {
    m_sinceKey.start();
    // The window may get another handle, and what is in it other children: the application sees all events first.
    qApp->installEventFilter(this);
}

void EnterPasswordGuard::setOn(bool on) {
    m_on = on;
    m_sinceKey.start();
}

bool EnterPasswordGuard::isInWindow(const QObject& object) const {
    if (m_view == nullptr)
        return false;
    if (object.isWidgetType())
        return static_cast<const QWidget&>(object).window() == m_view->window();
    return object.isWindowType() && &object == m_view->window()->windowHandle();
}

bool EnterPasswordGuard::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!isInWindow(*object))
            return false;
        if (!m_on) {
            Q_EMIT keyPressed();
            return false;
        }
        onKey(*static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::ShortcutOverride: // accepted, it finds no shortcut
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
        if (!m_on || !isInWindow(*object))
            return false;
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        if (m_on && isInWindow(*object))
            pass();
        return false;
    case QEvent::WindowActivate:
        if (isInWindow(*object))
            m_sinceKey.start();
        return false;
    default:
        return false;
    }
}

void EnterPasswordGuard::onKey(const QKeyEvent& key) {
    const auto pause = static_cast<quint64>(kPause.count());
    const quint64 before = std::exchange(m_lastKey, key.timestamp());
    const bool paused = m_sinceKey.hasExpired(kPause.count()) && (before == 0 || m_lastKey - before >= pause);
    m_sinceKey.start();
    if (paused && key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier && !key.isAutoRepeat())
        pass();
}

void EnterPasswordGuard::pass() {
    m_on = false;
    Q_EMIT passed();
}

} // namespace fv2
