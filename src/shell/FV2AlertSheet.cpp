// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2AlertSheet.h"

#include "platform/FV2WindowFrame.h"
#include "toolkit/NxButton.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"
#include "toolkit/TitleFont.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace fv2 {

namespace {

// Device-independent pixels.
constexpr int kWidth = 410;
constexpr int kMargin = 20;
constexpr int kAboveButtons = 28;
constexpr int kBetweenTexts = 8;
constexpr int kIconSize = 48;
constexpr int kRows = 6; //!< of texts and what is between them

NxTextField* wrappedText(const std::string& text) {
    auto* const field = new NxTextField;
    field->setText(QString::fromStdString(text));
    field->setWordWrap(true);
    field->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return field;
}

} // namespace

FV2AlertSheet::FV2AlertSheet(QWidget* window, FV2Alert alert)
    : QDialog(window)
    , m_alert(std::move(alert)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_WindowPropagation); // the window's palette
    setWindowModality(Qt::WindowModal);
    setWindowTitle(window->windowTitle());
    setAccessibleName(QString::fromStdString(content().messageText));
    const std::string& note = content().note;
    setAccessibleDescription(QString::fromStdString(content().informativeText + (note.empty() ? "" : "\n" + note)));
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(kMargin);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    addTexts(*grid);
    addButtons(*grid);
    connect(this, &QDialog::accepted, window, [onFirstButton = m_alert.onFirstButton] { onFirstButton(); });
}

void FV2AlertSheet::addTexts(QGridLayout& grid) {
    auto* const icon = new NxImageView;
    icon->setImageName(QStringLiteral("threat_48x48"));
    icon->setFixedSize(kIconSize, kIconSize);
    auto* const title = wrappedText(content().messageText);
    title->setFont(titleFont(font()));
    grid.addWidget(icon, 0, 0, kRows, 1, Qt::AlignTop);
    grid.addWidget(title, 0, 1);
    int row = 1;
    for (const std::string& text : {content().informativeText, content().note}) {
        if (text.empty())
            continue;
        grid.setRowMinimumHeight(row, kBetweenTexts);
        grid.addWidget(wrappedText(text), row + 1, 1);
        row += 2;
    }
    grid.setRowMinimumHeight(row, kAboveButtons);
    grid.setRowStretch(row, 1);
}

void FV2AlertSheet::addButtons(QGridLayout& grid) {
    auto* const box = new QDialogButtonBox(this); // a button becomes the default in its dialog
    for (std::size_t position = 0; position < content().buttons.size(); ++position) {
        auto* const button = new NxButton;
        button->setText(QString::fromStdString(content().buttons[position]));
        box->addButton(button, position == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole);
        button->setAutoDefault(true);
        button->setDefault(position == 0);
        button->setProminent(position == 0);
        if (position == 0)
            button->setFocus();
    }
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    grid.addWidget(box, kRows, 0, 1, 2);
}

void FV2AlertSheet::beginModal(bool takesKeyboard) {
    setAttribute(Qt::WA_ShowWithoutActivating, !takesKeyboard);
    // Before there is a window: one that takes its size while it is shown may be left with another.
    const int width = std::max(kWidth, layout()->totalMinimumSize().width());
    resize(width, std::max(layout()->totalHeightForWidth(width), layout()->totalMinimumSize().height()));
    moveToCentre();
    winId(); // makes the handle
    askForFrame(*windowHandle(), isDark(palette()));
    open();
}

//! Of the window's content: Qt guesses the frames, and not well.
void FV2AlertSheet::moveToCentre() {
    const QWidget& window = *parentWidget();
    QRect content(QPoint(), size());
    content.moveCenter(window.geometry().center());
    const QPoint frame = window.geometry().topLeft() - window.frameGeometry().topLeft();
    const QRect free = window.screen()->availableGeometry();
    const QPoint place = content.topLeft() - frame;
    move(std::clamp(place.x(), free.left(), std::max(free.left(), free.right() - width())),
         std::clamp(place.y(), free.top(), std::max(free.top(), free.bottom() - height())));
}

} // namespace fv2
