// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Ports.h"

#include <QDialog>

#include <functional>

class QGridLayout;

namespace fv2 {

//! One alert over a window: picture, title, text, buttons. It blocks that window and those behind it; there is no loop
//! of its own. Dies when it has been answered, or with its window. Main thread only.
class FV2AlertSheet final : public QDialog {
    Q_OBJECT
public:
    //! `onFirstButton` runs once the sheet has gone from the screen, if that button was chosen.
    FV2AlertSheet(QWidget* window, FV2AlertContent content, const std::function<void()>& onFirstButton);

    [[nodiscard]] const FV2AlertContent& content() const { return m_content; }

    //! Returns at once. Takes the keyboard only where the window has it.
    void beginModal();

private:
    void addTexts(QGridLayout& grid);
    void addButtons(QGridLayout& grid);

    const FV2AlertContent m_content;
};

} // namespace fv2
