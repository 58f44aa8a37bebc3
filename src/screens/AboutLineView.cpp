// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/AboutLineView.h"

#include <QHBoxLayout>

namespace fv2 {

AboutLineView::AboutLineView(QWidget* parent)
    : QWidget(parent)
    , m_label(new NxTextField(this))
    , m_value(new NxTextField(this)) {
    QFont bold = m_label->font();
    bold.setBold(true);
    m_label->setFont(bold);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_value->setWordWrap(true);
    m_label->setBuddy(m_value);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_label);
    row->addWidget(m_value, 1);
}

void AboutLineView::setLine(const QString& label, const QString& value) {
    if (label != m_label->text())
        m_label->setText(label);
    if (value != m_value->text())
        m_value->setText(value);
    setAccessibleName(label + value);
}

} // namespace fv2
