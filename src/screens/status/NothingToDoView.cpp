// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/NothingToDoView.h"

#include "model/FV2StatesTable.h"
#include "screens/LastSynchronisation.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/ReadableColour.h"
#include "toolkit/TitleFont.h"

#include <QEvent>
#include <QGridLayout>

namespace fv2 {

namespace {

// Device-independent pixels.
constexpr int kSignSize = 56;
constexpr int kWidest = 400;
constexpr int kTextMargin = 48;
constexpr int kCardMargin = 16;
constexpr int kBetweenParts = 24;
constexpr int kLineMargin = 10;

constexpr double kMorePoints = 2;  //!< of the title, than the desktop's font has
constexpr double kCardPart = 0.05; //!< of the text's colour in the card's

NxTextField* centredText(QWidget* parent) {
    auto* const text = new NxTextField(parent);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return text;
}

} // namespace

NothingToDoView::NothingToDoView(QWidget* parent)
    : NxView(parent)
    , m_sign(new NxImageView(this))
    , m_title(centredText(this))
    , m_text(centredText(this))
    , m_card(new NxView(this))
    , m_separator(new NxView(m_card)) {
    m_sign->setImageName(QStringLiteral("drive_template"));
    m_sign->setFixedSize(kSignSize, kSignSize);
    m_title->setFont(titleFont(font(), kMorePoints));
    m_text->setStringValue(QStringLiteral("IDUS_MGUI_NOTHING_TO_DO_DESC"));
    m_card->setCornerRadius(8);
    m_card->setMaximumWidth(kWidest);
    m_separator->setFixedHeight(1);
    auto* const card = new QGridLayout(m_card);
    card->setContentsMargins(kCardMargin, kLineMargin, kCardMargin, kLineMargin);
    card->setVerticalSpacing(kLineMargin);
    card->setHorizontalSpacing(kCardMargin);
    card->setColumnStretch(1, 1);
    m_computer = addLine(*card, "IDUS_MGUI_CARD_COMPUTER");
    card->addWidget(m_separator, card->rowCount(), 0, 1, 2);
    m_lastSynchronisation = addLine(*card, "IDUS_MGUI_CARD_LAST_SYNC");

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kCardMargin, kBetweenParts, kCardMargin, kCardMargin);
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(m_sign, 0, Qt::AlignHCenter);
    column->addSpacing(kBetweenParts);
    column->addWidget(m_title);
    column->addSpacing(6);
    auto* const text = new QHBoxLayout;
    text->setContentsMargins(kTextMargin, 0, kTextMargin, 0);
    text->addWidget(m_text);
    column->addLayout(text);
    column->addSpacing(kBetweenParts);
    auto* const middle = new QHBoxLayout;
    middle->addStretch(1);
    middle->addWidget(m_card, kWidest);
    middle->addStretch(1);
    column->addLayout(middle);
    column->addStretch(2);
}

NothingToDoView::Line NothingToDoView::addLine(QGridLayout& card, const char* label) {
    const Line line{new NxTextField(m_card), new NxTextField(m_card)};
    line.label->setStringValue(QString::fromUtf8(label));
    line.label->setBuddy(line.value);
    line.value->setWordWrap(true);
    line.value->setAlignment(Qt::AlignRight | Qt::AlignTop);
    const int row = card.rowCount();
    card.addWidget(line.label, row, 0, Qt::AlignTop);
    card.addWidget(line.value, row, 1);
    return line;
}

void NothingToDoView::changeEvent(QEvent* event) {
    NxView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_title->setFont(titleFont(font(), kMorePoints));
}

void NothingToDoView::show(const FV2AppState& state) {
    m_title->setStringValue(state.serviceState == kEncryptedState ? QStringLiteral("IDUS_NOTICE_ENCRYPTED")
                                                                  : QStringLiteral("IDUS_MGUI_NOTHING_TO_DO"));
    m_computer.value->setText(QString::fromStdString(state.computerName));
    m_lastSynchronisation.value->setText(lastSynchronisation(state));
}

void NothingToDoView::setColours(const FV2AppConfigModel& config) {
    const QColor page = toQColor(config.colours().colourSectionBackground);
    const QColor text = readableOn(page, kContrastOfText);
    const QColor card = mixed(page, text, kCardPart);
    m_sign->setTintColor(faintOn(page));
    m_title->setTextColor(text);
    m_text->setTextColor(quietOn(page));
    m_card->setBackgroundColor(card);
    m_separator->setBackgroundColor(toQColor(config.colours().colourSeperator));
    for (const Line& line : {m_computer, m_lastSynchronisation}) {
        line.label->setTextColor(quietOn(card));
        line.value->setTextColor(readableOn(card, kContrastOfText));
    }
}

} // namespace fv2
