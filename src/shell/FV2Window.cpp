// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2Window.h"

#include "logging/FV2Logging.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace fv2 {

namespace {

constexpr Qt::WindowFlags kTitledAndClosable =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

} // namespace

FV2Window::FV2Window(QSize contentSize)
    : QWidget(nullptr, kTitledAndClosable)
    , m_frame(new QVBoxLayout(this)) {
    m_frame->setContentsMargins(0, 0, 0, 0);
    m_frame->setSpacing(0);
    setMinimumSize(contentSize);
    resize(contentSize);
    auto* const close = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
    connect(close, &QShortcut::activated, this, [this] { QWidget::close(); });
}

void FV2Window::setContentView(QWidget* view) {
    m_frame->addWidget(view, 1);
}

void FV2Window::addTitlebarAccessory(QWidget* strip) {
    m_frame->insertWidget(0, strip);
}

void FV2Window::setCloseEnabled(bool enabled) {
    m_closeEnabled = enabled;
    // Setting the widget's own flags would hide it for a moment.
    if (QWindow* const handle = windowHandle())
        handle->setFlag(Qt::WindowCloseButtonHint, enabled);
}

void FV2Window::closeWindow() {
    m_closing = true;
    QWidget::close();
    m_closing = false;
}

void FV2Window::closeEvent(QCloseEvent* event) {
    if (!m_closeEnabled && !m_closing) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT willClose();
}

void FV2Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Q_EMIT shownOrHidden();
}

void FV2Window::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    Q_EMIT shownOrHidden();
}

void FV2Window::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        Q_EMIT shownOrHidden();
}

void FV2Window::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!std::exchange(m_painted, true))
        log(FV2LoggingLevel::ui, {"FV2Window first paint"});
}

void FV2Window::showAtFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
}

void FV2Window::makeKeyAndOrderFront() {
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    showAtFront();
    activateWindow();
}

void FV2Window::orderFrontRegardless() {
    setAttribute(Qt::WA_ShowWithoutActivating);
    showAtFront();
}

void FV2Window::center() {
    const QRect free = screen()->availableGeometry();
    move(free.center() - QPoint(width() / 2, height() / 2));
}

void FV2Window::addChildWindow(FV2Window& child) {
    child.winId(); // makes the handle
    winId();
    child.windowHandle()->setTransientParent(windowHandle());
}

void FV2Window::removeChildWindow(FV2Window& child) {
    if (QWindow* const handle = child.windowHandle())
        handle->setTransientParent(nullptr);
}

} // namespace fv2
