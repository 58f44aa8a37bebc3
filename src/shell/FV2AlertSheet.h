// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ports/FV2WindowRegistry.h"

#include <QDialog>

#include <functional>

class QGridLayout;

namespace fv2 {

//! An alert's text, its first button's action, and the kind of window that it is about: meaningless unless one is open.
struct FV2Alert {
    fv2Window about = fv2Window::None;
    FV2AlertContent content;
    std::function<void()> onFirstButton;
};

//! One alert over a window: picture, title, text, buttons. It blocks that window and those behind it; there is no loop
//! of its own. Dies when it has been answered, or with its window. Main thread only.
class FV2AlertSheet final : public QDialog {
    Q_OBJECT
public:
    //! The first button's action runs once the sheet is hidden, if that button was chosen.
    FV2AlertSheet(QWidget* window, FV2Alert alert);

    [[nodiscard]] const FV2Alert& alert() const { return m_alert; }
    [[nodiscard]] const FV2AlertContent& content() const { return m_alert.content; }

    //! Returns at once.
    void beginModal(bool takesKeyboard);

private:
    void addTexts(QGridLayout& grid);
    void addButtons(QGridLayout& grid);
    void moveToCentre();

    const FV2Alert m_alert;
};

} // namespace fv2
