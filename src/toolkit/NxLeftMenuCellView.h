// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace fv2 {

class NxImageView;
class NxTextField;

//! Between a number and the rim of its bubble, in pixels, both sides together.
inline constexpr int kRoomBesideNumber = 12;

//! A row of the left menu: icon, text, and a bubble with a number at the end. A long text gets more
//! lines, and the cell wants to be higher then. The mouse passes through it to the row beneath. Main thread only.
class NxLeftMenuCellView : public QWidget {
    Q_OBJECT
public:
    explicit NxLeftMenuCellView(QWidget* parent = nullptr);

    [[nodiscard]] NxTextField& textField() const { return *m_textField; }
    [[nodiscard]] NxImageView& imageView() const { return *m_imageView; }
    [[nodiscard]] NxImageView& counterImage() const { return *m_counterImage; }
    //! Stands over the bubble's middle. Bubble and number are hidden until someone shows both.
    [[nodiscard]] NxTextField& counterNumberField() const { return *m_counterNumberField; }

    //! That of the text in the width that it has, in pixels.
    [[nodiscard]] int wantedHeight() const { return m_wantedHeight; }

    [[nodiscard]] QSize sizeHint() const override { return {210, 32}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {100, 32}; }

Q_SIGNALS:
    void wantedHeightChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void arrange();
    [[nodiscard]] int bubbleWidth() const;

    NxTextField* m_textField;
    NxImageView* m_imageView;
    NxImageView* m_counterImage;
    NxTextField* m_counterNumberField;
    int m_wantedHeight = 0;
};

} // namespace fv2
