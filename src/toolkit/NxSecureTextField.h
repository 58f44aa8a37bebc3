// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"
#include "toolkit/NxFramedField.h"

#include <QClipboard>
#include <QTimer>

#include <chrono>
#include <functional>

class QTextLayout;
class QTextLine;

namespace fv2 {

//! A field for a password. What Qt edits, paints and tells others about is one dot for each Unicode character; the
//! characters themselves are kept as UTF-8 in a SecretText. Nothing can be copied, dragged or undone. Main thread only.
class NxSecureTextField final : public NxFramedField {
    Q_OBJECT
public:
    static constexpr std::size_t kMostBytes = 512;
    static constexpr std::chrono::seconds kRevealTime{5};

    explicit NxSecureTextField(QWidget* parent = nullptr);

    //! UTF-8, 512 bytes at the most, without a zero.
    [[nodiscard]] const SecretText& secret() const { return m_secret; }
    //! Moves the text out. The dots stay until clear(); an edit before that clears the field too.
    [[nodiscard]] SecretText takeSecret();
    void clear();

    //! Shows what has been typed, to the eye alone. Ends by itself after a few seconds, with the focus, and with the
    //! text. Does nothing without focus or text.
    void setRevealed(bool revealed);
    [[nodiscard]] bool isRevealed() const { return m_revealed; }

Q_SIGNALS:
    void secretChanged();
    void revealedChanged(bool revealed);
    //! Some input was no valid password text or did not fit; it was refused as a whole.
    void inputRefused();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void enter(QStringView text);
    void paste(QClipboard::Mode mode);
    void edit(const std::function<void()>& step);
    [[nodiscard]] bool agrees() const;
    void onTextChanged();
    [[nodiscard]] QRect textPlace() const;
    void withRevealedLine(const std::function<void(const QTextLayout&, const QTextLine&)>& use) const;
    [[nodiscard]] int revealedPosition(int place) const;
    [[nodiscard]] int placeAt(double x) const;
    void keepCaretInSight();
    void paintRevealed();

    SecretText m_secret{kMostBytes};
    QTimer m_revealEnd{this};
    double m_scrolled = 0; //!< pixels of the revealed text that are hidden at the left
    int m_anchor = 0;      //!< where a selection by mouse has begun
    bool m_revealed = false;
    bool m_taken = false;
    bool m_editing = false;
};

} // namespace fv2
