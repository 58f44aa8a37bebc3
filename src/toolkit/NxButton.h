// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPushButton>

namespace fv2 {

//! A button that shows its text as it is, "&" included, and shows plainly that it has the focus. Main thread only.
class NxButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)

public:
    explicit NxButton(QWidget* parent = nullptr)
        : QPushButton(parent) {}

    //! Shows the application's text of an identifier.
    void setTitle(const QString& identifier);
    //! The identifier that is shown; empty after setText().
    [[nodiscard]] QString title() const { return m_title; }

    //! Shows the text as it is.
    void setText(const QString& text);

    //! With some air around the text.
    [[nodiscard]] QSize sizeHint() const override { return QPushButton::sizeHint() + QSize(12, 4); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showText(const QString& text);

    QString m_title;
};

} // namespace fv2
