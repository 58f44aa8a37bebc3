// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QTextLayout>

#include <map>

namespace fv2 {

//! A text to read, never a link. Only the application's own texts may be styled, by way of HTML. With word wrap on,
//! words that are longer than a line are broken too, so that nothing is cut off. Main thread only.
class NxTextField : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString stringValue READ stringValue WRITE setStringValue)

public:
    explicit NxTextField(QWidget* parent = nullptr);

    //! Shows the application's text of an identifier; one with both "<" and ">" in it is HTML, of which the styles of
    //! letters are shown.
    void setStringValue(const QString& identifier);
    //! The identifier that is shown; empty after setText().
    [[nodiscard]] QString stringValue() const { return m_stringValue; }

    //! Shows the text as it is, whatever is in it.
    void setText(const QString& text);
    void setTextColor(const QColor& colour);

    //! One line with "…" at its end where the room is too small; the whole text is then the tooltip. Goes before word
    //! wrap.
    void setElided(bool elided);

    //! The size that the text takes when laid out as wide as given, in pixels, rounded up.
    [[nodiscard]] QSize sizeOfText(int width, const QFont& font, int* lines = nullptr) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    void textChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showText(const QString& text);
    [[nodiscard]] bool wraps() const { return wordWrap() && !m_elided; }
    [[nodiscard]] QString oneLine() const;
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] QSize ownSize(int width) const;
    [[nodiscard]] QSize withMargins(const QSize& size) const;
    QSizeF layOut(QTextLayout& layout, double width) const;
    [[nodiscard]] QColor textColour() const;
    void updateToolTip();

    QString m_stringValue;
    QList<QTextLayout::FormatRange> m_styles; //!< of the shown text; empty for a plain one
    bool m_elided = false;
    mutable std::map<std::pair<int, bool>, QSize> m_sizes; //!< by width and whether it wraps: layouts ask often
    int m_givenWidth = 0;                                  //!< 0 until it has been laid out for the screen
};

} // namespace fv2
