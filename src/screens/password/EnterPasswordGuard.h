// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <chrono>

class QKeyEvent;

namespace fv2 {

//! Keeps every key from the window around a view until the user has moved into it: by a click, or by Tab after a while
//! without a key. Where the desktop gives the keyboard to a window that nobody asked for, what is being typed into
//! another program arrives there. Alerts over the window have windows of their own. Main thread only.
class EnterPasswordGuard final : public QObject {
    Q_OBJECT
public:
    //! The pause before a Tab that counts: who types is faster.
    static constexpr std::chrono::milliseconds kPause{500};

    explicit EnterPasswordGuard(QWidget& view);

    void setOn(bool on);
    [[nodiscard]] bool isOn() const { return m_on; }

Q_SIGNALS:
    //! The user has moved into the window, and the guard is off.
    void passed();
    //! A key for the window, while the guard is off.
    void keyPressed();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] bool isInWindow(const QObject& object) const;
    void onKey(const QKeyEvent& key);
    void pass();

    const QPointer<QWidget> m_view;
    QElapsedTimer m_sinceKey; //!< or since the window got the keyboard
    quint64 m_lastKey = 0;    //!< when it was pressed; main may have been busy between that and now
    bool m_on = true;
};

} // namespace fv2
