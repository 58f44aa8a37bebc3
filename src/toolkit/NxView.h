// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QWidget>

namespace fv2 {

//! A plain area with a background colour or a vertical gradient, a border along some edges and rounded corners. A
//! colour that isn't set is not painted; while the palette is dark, a dark colour that is set stands in for its light
//! one. The gradient, when both its ends are there, covers the background colour. Main thread only.
class NxView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor)
    Q_PROPERTY(QColor darkBackgroundColor READ darkBackgroundColor WRITE setDarkBackgroundColor)
    Q_PROPERTY(QColor gradientStart READ gradientStart WRITE setGradientStart)
    Q_PROPERTY(QColor darkGradientStart READ darkGradientStart WRITE setDarkGradientStart)
    Q_PROPERTY(QColor gradientEnd READ gradientEnd WRITE setGradientEnd)
    Q_PROPERTY(QColor darkGradientEnd READ darkGradientEnd WRITE setDarkGradientEnd)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    Q_PROPERTY(QColor darkBorderColor READ darkBorderColor WRITE setDarkBorderColor)
    Q_PROPERTY(double borderWidth READ borderWidth WRITE setBorderWidth)
    Q_PROPERTY(Qt::Edges borderEdges READ borderEdges WRITE setBorderEdges)
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius)

public:
    static constexpr Qt::Edges kAllEdges = Qt::TopEdge | Qt::BottomEdge | Qt::LeftEdge | Qt::RightEdge;

    using QWidget::QWidget;

    [[nodiscard]] QColor backgroundColor() const { return m_light.background; }
    [[nodiscard]] QColor darkBackgroundColor() const { return m_dark.background; }
    [[nodiscard]] QColor gradientStart() const { return m_light.gradientStart; }
    [[nodiscard]] QColor darkGradientStart() const { return m_dark.gradientStart; }
    [[nodiscard]] QColor gradientEnd() const { return m_light.gradientEnd; }
    [[nodiscard]] QColor darkGradientEnd() const { return m_dark.gradientEnd; }
    [[nodiscard]] QColor borderColor() const { return m_light.border; }
    [[nodiscard]] QColor darkBorderColor() const { return m_dark.border; }
    [[nodiscard]] double borderWidth() const { return m_borderWidth; }
    [[nodiscard]] Qt::Edges borderEdges() const { return m_borderEdges; }
    [[nodiscard]] double cornerRadius() const { return m_cornerRadius; }

    void setBackgroundColor(const QColor& colour) { set(m_light.background, colour); }
    void setDarkBackgroundColor(const QColor& colour) { set(m_dark.background, colour); }
    void setGradientStart(const QColor& colour) { set(m_light.gradientStart, colour); }
    void setDarkGradientStart(const QColor& colour) { set(m_dark.gradientStart, colour); }
    void setGradientEnd(const QColor& colour) { set(m_light.gradientEnd, colour); }
    void setDarkGradientEnd(const QColor& colour) { set(m_dark.gradientEnd, colour); }
    void setBorderColor(const QColor& colour) { set(m_light.border, colour); }
    void setDarkBorderColor(const QColor& colour) { set(m_dark.border, colour); }
    //! In pixels; drawn as a whole number of the screen's own pixels, one at least. 0 draws none.
    void setBorderWidth(double width) { set(m_borderWidth, width); }
    void setBorderEdges(Qt::Edges edges) { set(m_borderEdges, edges); }
    //! In pixels; no more than half the shorter side is used.
    void setCornerRadius(double radius) { set(m_cornerRadius, radius); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Colours {
        QColor background;
        QColor gradientStart;
        QColor gradientEnd;
        QColor border;
    };

    template <class T>
    void set(T& field, const T& value) {
        field = value;
        update();
    }
    [[nodiscard]] Colours coloursOfPalette() const;

    Colours m_light;
    Colours m_dark;
    double m_borderWidth = 1;
    Qt::Edges m_borderEdges = kAllEdges;
    double m_cornerRadius = 0;
};

} // namespace fv2
