// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxLeftMenuCellView.h"

#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"

#include <QEvent>
#include <QFontInfo>
#include <QStyle>

#include <array>

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

//! How the text is tried until it fits: parts of the usual size of letters, and lines.
struct Setting {
    double scale;
    int lines;
};
constexpr std::array kSettings{Setting{1, 1},    Setting{0.95, 1}, Setting{0.9, 1},  Setting{1, 2},
                               Setting{0.95, 2}, Setting{0.9, 2},  Setting{0.85, 2}, Setting{0.8, 2}};

int widestWord(const QString& text, const QFont& font) {
    int widest = 0;
    const QFontMetrics letters(font);
    for (const QString& word : text.split(u' '))
        widest = std::max(widest, letters.horizontalAdvance(word));
    return widest;
}

} // namespace

NxLeftMenuCellView::NxLeftMenuCellView(QWidget* parent)
    : QWidget(parent)
    , m_textField(new NxTextField(this))
    , m_imageView(new NxImageView(this))
    , m_counterImage(new NxImageView(this))
    , m_counterNumberField(new NxTextField(this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_counterImage->setStretchesMiddle(true);
    m_counterNumberField->setAlignment(Qt::AlignCenter);
    m_counterImage->hide();
    m_counterNumberField->hide();
    m_textField->installEventFilter(this);
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
    if (bubbleCameOrWent || (watched == m_textField && event->type() == QEvent::FontChange))
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
    fitText(visual({textLeft, 0, std::max(0, textRight - textLeft), height()}));
}

void NxLeftMenuCellView::fitText(const QRect& room) {
    const double usual = QFontInfo(font()).pointSizeF();
    const auto scaled = [&](double scale) {
        QFont changed = m_textField->font();
        changed.setPointSizeF(usual * scale);
        return changed;
    };
    m_textField->setElided(false);
    m_textField->setWordWrap(true);
    const auto fitsAt = [&](const Setting& setting) {
        int lines = 0;
        const QSize size = m_textField->sizeOfText(room.width(), scaled(setting.scale), &lines);
        return lines <= setting.lines && size.height() <= room.height();
    };
    // Prefer smaller letters to a broken word, and a broken word to a cut text.
    const auto fitsInWholeWordsAt = [&](const Setting& setting) {
        return widestWord(m_textField->text(), scaled(setting.scale)) <= room.width() && fitsAt(setting);
    };
    const auto* fitting = std::find_if(kSettings.begin(), kSettings.end(), fitsInWholeWordsAt);
    if (fitting == kSettings.end())
        fitting = std::find_if(kSettings.begin(), kSettings.end(), fitsAt);
    const bool fits = fitting != kSettings.end();
    m_textField->setFont(scaled(fits ? fitting->scale : 1));
    m_textField->setGeometry(room);
    m_textField->setElided(!fits);
    setToolTip(m_textField->toolTip());
}

} // namespace fv2
