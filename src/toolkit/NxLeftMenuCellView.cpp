// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxLeftMenuCellView.h"

#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"

#include <QEvent>
#include <QFontInfo>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace fv2 {

namespace {

constexpr int kLeftMargin = 18;
constexpr int kRightMargin = 16;
constexpr int kGap = 10;
constexpr int kIconSize = 20;
// Even, like the bubble's width, so that a centred one is on whole pixels at 150 % too.
constexpr int kBubbleHeight = 20;
constexpr int kNarrowestBubble = 26;
constexpr double kNumberScale = 0.9;

} // namespace

NxLeftMenuCellView::NxLeftMenuCellView(QWidget* parent)
    : QWidget(parent)
    , m_textField(new NxTextField(this))
    , m_imageView(new NxImageView(this))
    , m_counterImage(new NxImageView(this))
    , m_counterNumberField(new NxTextField(this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_textField->setWordWrap(true);
    m_counterImage->setStretchesMiddle(true);
    m_counterNumberField->setAlignment(Qt::AlignCenter);
    m_counterImage->hide();
    m_counterNumberField->hide();
    m_counterImage->installEventFilter(this);
    connect(m_textField, &NxTextField::textChanged, this, &NxLeftMenuCellView::arrange);
    connect(m_counterNumberField, &NxTextField::textChanged, this, &NxLeftMenuCellView::arrange);
    arrange();
}

void NxLeftMenuCellView::resizeEvent(QResizeEvent*) {
    arrange();
}

void NxLeftMenuCellView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
        arrange();
}

bool NxLeftMenuCellView::eventFilter(QObject* watched, QEvent* event) {
    const bool bubbleCameOrWent =
        watched == m_counterImage && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent);
    if (bubbleCameOrWent)
        arrange();
    return QWidget::eventFilter(watched, event);
}

int NxLeftMenuCellView::bubbleWidth() const {
    const QFontMetrics letters = m_counterNumberField->fontMetrics();
    const int width = letters.horizontalAdvance(m_counterNumberField->text()) + kRoomBesideNumber;
    return std::max(kNarrowestBubble, width + width % 2);
}

void NxLeftMenuCellView::arrange() {
    QFont numberFont = m_counterNumberField->font();
    numberFont.setPointSizeF(QFontInfo(font()).pointSizeF() * kNumberScale);
    m_counterNumberField->setFont(numberFont);

    const auto visual = [this](const QRect& place) { return QStyle::visualRect(layoutDirection(), rect(), place); };
    m_imageView->setGeometry(visual({kLeftMargin, (height() - kIconSize) / 2, kIconSize, kIconSize}));

    const int bubbleLeft = width() - kRightMargin - bubbleWidth();
    const QRect bubble = visual({bubbleLeft, (height() - kBubbleHeight) / 2, bubbleWidth(), kBubbleHeight});
    m_counterImage->setGeometry(bubble);
    m_counterNumberField->setGeometry(bubble);

    const int textLeft = kLeftMargin + kIconSize + kGap;
    const int textRight = m_counterImage->isHidden() ? width() - kRightMargin : bubbleLeft - kGap;
    m_textField->setGeometry(visual({textLeft, 0, std::max(0, textRight - textLeft), height()}));
    if (const int wanted = m_textField->heightForWidth(m_textField->width());
        std::exchange(m_wantedHeight, wanted) != wanted)
        Q_EMIT wantedHeightChanged();
}

} // namespace fv2
