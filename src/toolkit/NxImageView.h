// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPixmap>
#include <QWidget>

#include <optional>

class QSvgRenderer;

namespace fv2 {

//! One of the program's pictures, as large as fits, in the middle, sharp on every screen. It only decorates: assistive
//! programs find an unnamed graphic until setAccessibleName() names it. Main thread only.
class NxImageView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
    Q_PROPERTY(bool stretchesMiddle READ stretchesMiddle WRITE setStretchesMiddle)

public:
    explicit NxImageView(QWidget* parent = nullptr);

    //! The picture ":/images/<name>.svg"; an unknown name shows nothing.
    void setImageName(const QString& name);
    [[nodiscard]] QString imageName() const { return m_imageName; }

    //! Paints the picture's outline in one colour; none: in its own colours.
    void setTintColor(std::optional<QColor> colour);
    [[nodiscard]] std::optional<QColor> tintColor() const { return m_tintColor; }

    //! Fills a wider area by stretching the picture's middle alone; its ends keep their shape.
    void setStretchesMiddle(bool stretches);
    [[nodiscard]] bool stretchesMiddle() const { return m_stretchesMiddle; }

    //! The picture's own size.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect placeIn(const QSize& room, const QSize& picture) const;

    QString m_imageName;
    std::optional<QColor> m_tintColor;
    bool m_stretchesMiddle = false;
    QPixmap m_tinted; //!< in the screen's own pixels
};

} // namespace fv2
