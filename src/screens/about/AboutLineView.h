// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxTextField.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QWidget>

namespace fv2 {

//! A bold label and its value beside it. The value wraps; one that can be copied stays on one line, below its label if
//! there is more room, can be selected by mouse and keyboard and has a menu for it. Main thread only.
class AboutLineView final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool copyable READ isCopyable WRITE setCopyable)

public:
    explicit AboutLineView(QWidget* parent = nullptr);

    //! Both as they are shown; never read as mark-up.
    void setLine(const QString& label, const QString& value);

    //! Once, before the first setLine().
    void setCopyable(bool copyable);
    [[nodiscard]] bool isCopyable() const { return m_copyableValue != nullptr; }

    //! Lines of one page share the width of their labels.
    [[nodiscard]] int labelWidth() const { return m_label->sizeHint().width(); }
    void setLabelWidth(int width);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitCopyableValue();
    void showCopyMenu(const QPoint& place);

    NxTextField* m_label;
    NxTextField* m_value;
    QBoxLayout* m_row;
    QLineEdit* m_copyableValue = nullptr; //!< instead of the value
};

} // namespace fv2
