// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPushButton>

namespace fv2 {

//! A button that shows its text as it is, "&" included. It looks the same under every style, in the palette's colours:
//! filled if it does what its window is for, and with a ring of 2 px while it has the keyboard. Main thread only.
class NxButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)

public:
    explicit NxButton(QWidget* parent = nullptr);

    //! Shows the application's text of an identifier.
    void setTitle(const QString& identifier);
    //! The identifier that is shown; empty after setText().
    [[nodiscard]] QString title() const { return m_title; }

    //! Shows the text as it is.
    void setText(const QString& text);

    //! It does what its window is for; one of a window at the most.
    void setProminent(bool prominent);
    [[nodiscard]] bool isProminent() const { return m_prominent; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Colours {
        QColor fill, border, text;
    };

    void showText(const QString& text);
    [[nodiscard]] QFont shownFont() const;
    [[nodiscard]] Colours colours() const;

    QString m_title;
    bool m_prominent = false;
};

} // namespace fv2
