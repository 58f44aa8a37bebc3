// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractButton>

namespace fv2 {

class NxImageView;

//! A button that is one of the program's pictures, in the colour of its text. Its title is what a screen reader reads
//! and the mouse is told. Main thread only.
class NxImageButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)

public:
    explicit NxImageButton(QWidget* parent = nullptr);

    //! The application's text of an identifier.
    void setTitle(const QString& identifier);
    [[nodiscard]] QString title() const { return m_title; }

    //! See NxImageView.
    void setImageName(const QString& name);
    [[nodiscard]] QString imageName() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void tint();

    QString m_title;
    NxImageView* m_image;
};

} // namespace fv2
