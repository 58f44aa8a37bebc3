// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxTextField.h"

#include <QWidget>

namespace fv2 {

//! A bold label and its value beside it; the value wraps. Main thread only.
class AboutLineView final : public QWidget {
    Q_OBJECT
public:
    explicit AboutLineView(QWidget* parent = nullptr);

    //! Both as they are shown; never read as mark-up.
    void setLine(const QString& label, const QString& value);

    //! Lines of one page share the width of their labels.
    [[nodiscard]] int labelWidth() const { return m_label->sizeHint().width(); }
    void setLabelWidth(int width) { m_label->setFixedWidth(width); }

private:
    NxTextField* m_label;
    NxTextField* m_value;
};

} // namespace fv2
