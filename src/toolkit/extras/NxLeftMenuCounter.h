// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPushButton>

#include <optional>

namespace fv2 {

//! A small round badge with a number in the colour of a status, for a row of a menu: a click on it is one on the row.
//! Hidden while the number is 0. Every setter signals before and after, whether or not the value is another. Main
//! thread only.
class NxLeftMenuCounter : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(qlonglong number READ number WRITE setNumber NOTIFY numberDidChange)
    Q_PROPERTY(unsigned status READ status WRITE setStatus NOTIFY statusDidChange)
    Q_PROPERTY(QColor color READ colorOrInvalid WRITE setColorOrNone NOTIFY colorDidChange)

public:
    explicit NxLeftMenuCounter(QWidget* parent = nullptr);

    [[nodiscard]] qlonglong number() const { return m_number; }
    void setNumber(qlonglong number);

    [[nodiscard]] unsigned status() const { return m_status; }
    //! 0 OK, 1 warning, 2 error, 3 information: takes the colour of the status. Any other number is kept and does not
    //! touch the colour.
    void setStatus(unsigned status);

    //! What the badge is tinted with, its alpha left out; none: the badge is white.
    [[nodiscard]] std::optional<QColor> color() const { return m_color; }
    void setColor(std::optional<QColor> color);

    //! Empty while the badge is hidden.
    [[nodiscard]] QString accessibilityValueDescription() const;
    //! Empty for a status without a name.
    [[nodiscard]] QString accessibilityState() const;
    [[nodiscard]] QString accessibilityRoleDescription() const;
    //! Names the badge with the application's text of an identifier.
    void setAccessibilityLabel(const QString& identifier);
    [[nodiscard]] bool isAccLabelTranslated() const { return m_isAccLabelTranslated; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void numberWillChange();
    void numberDidChange();
    void statusWillChange();
    void statusDidChange();
    void colorWillChange();
    void colorDidChange();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QColor colorOrInvalid() const { return m_color.value_or(QColor()); }
    void setColorOrNone(const QColor& color) { setColor(color.isValid() ? std::optional(color) : std::nullopt); }
    [[nodiscard]] QColor tinted(double luminance) const;
    void tellAccessibility();

    qlonglong m_number = 0;
    unsigned m_status = 0;
    std::optional<QColor> m_color;
    bool m_isAccLabelTranslated = false;
};

} // namespace fv2
