// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2Window.h"

#include "logging/FV2Logging.h"
#include "platform/FV2ThisProcess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

#include <algorithm>
#include <iterator>

namespace fv2 {

namespace {

constexpr Qt::WindowFlags kTitledAndClosable =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

//! Under Wayland nobody reports a minimised window, and a mapped one comes to the front only with a token.
bool canOnlyComeAnew() {
    return isWaylandClient() && QApplication::activeWindow() == nullptr &&
           !qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN");
}

void showInFront(QWidget& window, bool anew) {
    if (anew)
        window.hide();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
}

//! Without it screen readers would take the window for a mere container.
QAccessibleInterface* accessibleWindow(const QString& className, QObject* object) {
    if (className != QLatin1String(FV2Window::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(static_cast<FV2Window*>(object), QAccessible::Window);
}

} // namespace

FV2Window::FV2Window(QSize contentSize)
    : QWidget(nullptr, kTitledAndClosable)
    , m_contentSize(contentSize)
    , m_frame(new QVBoxLayout(this)) {
    m_frame->setContentsMargins(0, 0, 0, 0);
    m_frame->setSpacing(0);
    QAccessible::installFactory(accessibleWindow); // once, however often it is called
    setMinimumSize(contentSize);
    resize(contentSize);
    auto* const close = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
    connect(close, &QShortcut::activated, this, [this] { QWidget::close(); });
}

void FV2Window::hideTitlebarButtons() {
    m_hasButtons = false;
    setWindowFlag(Qt::WindowCloseButtonHint, false);
}

void FV2Window::growWithContent() {
    m_grows = true;
    fitContent();
}

void FV2Window::fitContent() {
    const int width = std::max(m_contentSize.width(), m_frame->totalMinimumSize().width());
    setMinimumSize(width, std::max(m_contentSize.height(), m_frame->minimumHeightForWidth(width)));
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
        handle->setFlag(Qt::WindowCloseButtonHint, isCloseEnabled());
}

void FV2Window::closeWindow() {
    m_closing = true;
    QWidget::close();
    m_closing = false;
}

bool FV2Window::event(QEvent* event) {
    if (m_grows && (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show))
        fitContent();
    return QWidget::event(event);
}

void FV2Window::closeEvent(QCloseEvent* event) {
    if (!isCloseEnabled() && !m_closing) {
        event->ignore();
        Q_EMIT closeRefused();
        return;
    }
    event->accept();
    Q_EMIT willClose();
}

void FV2Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Q_EMIT shownOrHidden();
    // This window is not mapped yet: what is mapped before it ends up below and without the keyboard.
    QMetaObject::invokeMethod(
        this, [this] { beginNextSheet(!testAttribute(Qt::WA_ShowWithoutActivating)); }, Qt::QueuedConnection);
}

void FV2Window::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!m_comesAnew)
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
        logUi("FV2Window first paint");
}

void FV2Window::makeKeyAndOrderFront(bool byUser) {
    orderFront();
    if (FV2AlertSheet* const sheet = unansweredSheet()) {
        showInFront(*sheet, canOnlyComeAnew());
        sheet->activateWindow();
    } else {
        activateWindow();
    }
    if (byUser)
        Q_EMIT madeKey();
}

void FV2Window::orderFront() {
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    // Under X11 a window that is mapped anew gets the keyboard; one that is only restored doesn't always.
    comeToFront(isMinimized() || canOnlyComeAnew());
}

void FV2Window::orderFrontRegardless() {
    setAttribute(Qt::WA_ShowWithoutActivating);
    comeToFront(isMinimized());
}

void FV2Window::comeToFront(bool anew) {
    m_comesAnew = anew;
    showInFront(*this, anew);
    m_comesAnew = false;
}

void FV2Window::orderOut() {
    if (m_sheet != nullptr)
        m_sheet->close();
    hide();
}

void FV2Window::center() {
    const QRect free = screen()->availableGeometry();
    move(free.center() - QPoint(width() / 2, height() / 2));
}

void FV2Window::beginSheet(FV2Alert alert) {
    const bool isShown = m_sheet != nullptr && m_sheet->content() == alert.content;
    const bool waits = std::any_of(m_waitingAlerts.begin(), m_waitingAlerts.end(),
                                   [&alert](const FV2Alert& other) { return other.content == alert.content; });
    if (isShown || waits)
        return;
    m_waitingAlerts.push_back(std::move(alert));
    beginNextSheet(isActiveWindow());
}

void FV2Window::beginNextSheet(bool takesKeyboard) {
    if (m_sheet != nullptr || m_waitingAlerts.empty() || !isVisible())
        return;
    m_sheet = new FV2AlertSheet(this, std::move(m_waitingAlerts.front()));
    m_waitingAlerts.pop_front();
    // In the next turn: whoever closes a sheet may be about to hide this window too.
    connect(
        m_sheet, &QObject::destroyed, this, [this] { beginNextSheet(isActiveWindow()); }, Qt::QueuedConnection);
    m_sheet->beginModal(takesKeyboard);
}

std::vector<FV2Alert> FV2Window::takeAlerts() {
    std::vector<FV2Alert> all;
    if (FV2AlertSheet* const sheet = unansweredSheet()) {
        all.push_back(sheet->alert());
        sheet->close();
    }
    std::move(m_waitingAlerts.begin(), m_waitingAlerts.end(), std::back_inserter(all));
    m_waitingAlerts.clear();
    return all;
}

//! One that has been answered is hidden and dies soon.
FV2AlertSheet* FV2Window::unansweredSheet() const {
    return m_sheet != nullptr && m_sheet->isVisible() ? m_sheet.data() : nullptr;
}

bool FV2Window::hasKeyboard() const {
    return isActiveWindow() || (m_sheet != nullptr && m_sheet->isActiveWindow());
}

void FV2Window::addChildWindow(FV2Window& child) {
    // Only dialogs are told apart from windows of their own by X11's window managers.
    child.setWindowFlags((child.windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
    child.winId(); // makes the handle
    winId();
    child.windowHandle()->setTransientParent(windowHandle());
}

void FV2Window::removeChildWindow(FV2Window& child) {
    if (QWindow* const handle = child.windowHandle())
        handle->setTransientParent(nullptr);
}

} // namespace fv2
