// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

class QKeyEvent;

namespace fv2 {

//! Whether Caps Lock is on: under X11 asked from the server whenever a window of ours gets the keyboard or a key,
//! elsewhere read from the keys alone, so that it is known from the first one on. Main thread only.
class FV2CapsLock final : public QObject {
    Q_OBJECT
public:
    explicit FV2CapsLock(QObject* parent);

    [[nodiscard]] bool isOn() const { return m_on; }

Q_SIGNALS:
    void changed(bool on);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void setOn(bool on);

    bool m_on = false;
};

} // namespace fv2
