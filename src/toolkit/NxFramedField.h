// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>

namespace fv2 {

//! A field with a frame that looks the same under every style, with a ring of 2 px while it has the keyboard. Main
//! thread only.
class NxFramedField : public QLineEdit {
    Q_OBJECT
public:
    explicit NxFramedField(QWidget* parent = nullptr);

    //! Puts a button into the field, at its end; it is the field's then. Once.
    void setButton(QWidget* button);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    //! The area and the frame, without a text.
    void paintFrame();

private:
    void keepFree(int end);
};

} // namespace fv2
