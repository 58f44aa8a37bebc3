// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2AlertSheet.h"

#include <QPointer>
#include <QVBoxLayout>
#include <QWidget>

#include <deque>
#include <vector>

namespace fv2 {

//! A titled window that can be closed. Its controller owns it. Main thread only.
class FV2Window : public QWidget {
    Q_OBJECT
public:
    //! `contentSize` is the size at first, in device-independent pixels, and the smallest one.
    explicit FV2Window(QSize contentSize);

    //! Removes all title bar buttons, before the window is first shown: then only closeWindow() closes it.
    void hideTitlebarButtons();
    //! Lets the window grow beyond its first size if its content needs it, from now on.
    void growWithContent();

    //! Fills the window with the view, which the window then owns.
    void setContentView(QWidget* view);
    //! Puts a strip above the content.
    void addTitlebarAccessory(QWidget* strip);

    //! Whether the user can close the window; closeWindow() does in any case.
    void setCloseEnabled(bool enabled);
    [[nodiscard]] bool isCloseEnabled() const { return m_closeEnabled && m_hasButtons; }
    void closeWindow();

    //! Whether the user sees the window as one of the desktop's open ones: shown and not minimised. The window with the
    //! keyboard would not do: while the tray's menu is open that is the panel.
    [[nodiscard]] bool isMainWindow() const { return isVisible() && !isMinimized(); }

    //! Shows the window in front of all others and gives it, or the alert over it, the keyboard, as far as the desktop
    //! lets us. `byUser`: a click of the user's has asked for it, which madeKey() tells the content.
    void makeKeyAndOrderFront(bool byUser = true);
    //! The same without the keyboard, for a window that lies under one that gets it at once.
    void orderFront();
    //! Shows the window without taking the keyboard from where it is.
    void orderFrontRegardless();
    //! Hides the window; an alert over it goes unanswered.
    void orderOut();
    //! In the middle of the screen. Where a desktop places windows by itself, as under Wayland, it decides.
    void center();

    //! Keeps the child, which must not have been shown yet, in front of this window.
    void addChildWindow(FV2Window& child);
    static void removeChildWindow(FV2Window& child);

    //! Shows an alert over this window as soon as the window is on the screen and earlier ones have been answered; one
    //! that is there already, with the same texts, is not shown again. Returns at once.
    void beginSheet(FV2Alert alert);
    //! Takes away the alert that is shown and those that wait, unanswered and in this order.
    [[nodiscard]] std::vector<FV2Alert> takeAlerts();
    //! Whether this window or the alert over it has the keyboard.
    [[nodiscard]] bool hasKeyboard() const;
    //! Nothing while no alert is shown.
    [[nodiscard]] FV2AlertSheet* attachedSheet() const { return m_sheet; }

Q_SIGNALS:
    //! Once for each closing, while the window still exists.
    void willClose();
    //! The user tried to close the window and can't: some desktops offer it anyway.
    void closeRefused();
    void shownOrHidden();
    //! The user has asked for the window, which is shown now and gets the keyboard.
    void madeKey();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fitContent();
    void comeToFront(bool anew);
    [[nodiscard]] FV2AlertSheet* unansweredSheet() const;
    void beginNextSheet(bool takesKeyboard);

    bool m_grows = false; //!< first: the layout, as it is made, sends an event
    const QSize m_contentSize;
    QVBoxLayout* m_frame;
    QPointer<FV2AlertSheet> m_sheet;
    std::deque<FV2Alert> m_waitingAlerts;
    bool m_hasButtons = true;
    bool m_closeEnabled = true;
    bool m_closing = false;
    bool m_painted = false;
    bool m_comesAnew = false; //!< hidden for a moment only
};

} // namespace fv2
