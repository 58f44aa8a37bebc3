// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/about/AboutLineView.h"

#include "toolkit/NxTranslated.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>

namespace fv2 {

namespace {

//! What a line edit keeps free on both sides of its text.
constexpr int kInsideLineEdit = 2;
constexpr int kBesideLabel = 8;
constexpr int kBelowLabel = 2;

} // namespace

AboutLineView::AboutLineView(QWidget* parent)
    : QWidget(parent)
    , m_label(new NxTextField(this))
    , m_value(new NxTextField(this))
    , m_row(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
    QFont bold = m_label->font();
    bold.setBold(true);
    m_label->setFont(bold);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_value->setWordWrap(true);
    m_label->setBuddy(m_value);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(kBesideLabel);
    m_row->addWidget(m_label);
    m_row->addWidget(m_value, 1);
}

void AboutLineView::setCopyable(bool copyable) {
    if (!copyable || isCopyable())
        return;
    m_value->hide();
    m_copyableValue = new QLineEdit(this);
    m_copyableValue->setReadOnly(true);
    m_copyableValue->setFrame(false);
    m_copyableValue->setTextMargins(-kInsideLineEdit, 0, -kInsideLineEdit, 0); // as the other lines' values
    fitCopyableValue();
    m_copyableValue->setContextMenuPolicy(Qt::CustomContextMenu);
    QPalette onPage;
    onPage.setColor(QPalette::Base, Qt::transparent);
    m_copyableValue->setPalette(onPage);
    m_label->setBuddy(m_copyableValue);
    m_row->addWidget(m_copyableValue);
    connect(m_copyableValue, &QWidget::customContextMenuRequested, this, &AboutLineView::showCopyMenu);
}

//! A value that would be cut beside its label goes below it.
void AboutLineView::fitCopyableValue() {
    const int room = width() - m_label->width() - kBesideLabel;
    const int needed = m_copyableValue->fontMetrics().horizontalAdvance(m_copyableValue->text()) + 2 * kInsideLineEdit;
    const bool isBelow = needed > room && m_label->width() > 0;
    m_row->setDirection(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_row->setSpacing(isBelow ? kBelowLabel : kBesideLabel);
    m_copyableValue->setFixedHeight(m_label->sizeHint().height());
}

void AboutLineView::setLabelWidth(int width) {
    m_label->setFixedWidth(width);
    if (isCopyable())
        fitCopyableValue();
}

void AboutLineView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isCopyable())
        fitCopyableValue();
}

void AboutLineView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && isCopyable())
        fitCopyableValue();
}

void AboutLineView::showCopyMenu(const QPoint& place) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(translated(QStringLiteral("IDUS_BUTTON_COPY")), m_copyableValue, [this] {
        if (!m_copyableValue->hasSelectedText())
            m_copyableValue->selectAll();
        m_copyableValue->copy();
    });
    menu->popup(m_copyableValue->mapToGlobal(place));
}

void AboutLineView::setLine(const QString& label, const QString& value) {
    if (label != m_label->text())
        m_label->setText(label);
    if (m_copyableValue != nullptr) {
        m_copyableValue->setAccessibleName(label);
        if (value != m_copyableValue->text())
            m_copyableValue->setText(value);
        fitCopyableValue();
    } else if (value != m_value->text()) {
        m_value->setText(value);
    }
    setAccessibleName(QString(label.trimmed() + u' ' + value).trimmed());
}

} // namespace fv2
