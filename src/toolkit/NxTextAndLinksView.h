// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxTagMapper.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QTextLayout;

namespace fv2 {

//! A text to read, made of mark-up, whose links react to mouse, keyboard and screen readers. Nothing is painted behind
//! it. Tab goes from link to link, Enter or the space bar runs the one with the focus mark. As high as its text is at
//! its width. Main thread only.
class NxTextAndLinksView : public QWidget {
    Q_OBJECT
public:
    //! What lies between the edges and the text: room for the focus mark.
    static constexpr int kPadding = 3;

    explicit NxTextAndLinksView(QWidget* parent = nullptr);
    ~NxTextAndLinksView() override;

    //! Shows the mark-up in the view's font and colours.
    void setHtmlCode(const QString& markup);
    //! The same after setting what is given: a font, or a colour that is valid.
    void setHtmlCode(const QString& markup, const std::optional<QFont>& textFont, const QColor& fontColor,
                     const QColor& linkColor);

    //! An invalid colour, the first value, leaves links in the colour of the text.
    void setLinkColor(const QColor& colour);
    [[nodiscard]] const QColor& linkColor() const { return m_linkColor; }
    //! Without it the text has the palette's colour.
    void setTextColor(const QColor& colour);
    //! Of the mark around the link that has the keyboard; without it the palette's highlight.
    void setFocusMarkColor(const QColor& colour);
    [[nodiscard]] QColor focusMarkColor() const;

    [[nodiscard]] const QString& string() const { return m_text.string(); }
    [[nodiscard]] const std::vector<NxAttributedString::LinkRange>& links() const { return m_links; }

    //! The character under a place of the view; none beside the text.
    [[nodiscard]] std::optional<int> characterIndexAt(const QPoint& place) const;
    [[nodiscard]] bool hasLinkAt(int index) const { return m_text.attributesAt(index).link.has_value(); }
    //! Around all pieces of a link, in the view's coordinates.
    [[nodiscard]] QRect rectOfLink(std::size_t link) const;
    //! The link that has the keyboard; none while the view has not got it.
    [[nodiscard]] std::optional<std::size_t> focusedLink() const;
    //! The one that had the keyboard last, and gets it with the view.
    [[nodiscard]] std::size_t rememberedLink() const { return m_focusedLink; }
    //! Brings the keyboard to a link as Tab does.
    void focusLink(std::size_t link);
    //! Gives the keyboard to a link that had it already, as far as the user can tell: nothing moves into view.
    void giveFocusBack(std::size_t link);
    //! Runs a link as a click on it does. The view may be on its way out afterwards.
    void runLink(std::size_t link) { clickedOnLink(m_links.at(link).start); }

    //! Scroll areas bring what it says is the cursor into view: the link that has the keyboard.
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    //! The user has brought the keyboard to a link; its place in the view. Not told when a window gives it back.
    void linkFocused(const QRect& place);

protected:
    //! A click at a character; one beside all links has nothing to run. A link that was made of mark-up has no meaning
    //! of its own: subclasses give it one.
    virtual void clickedOnLink(int index) { Q_UNUSED(index) }

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void textDidChange();
    void updateCursor(const QPoint& place);
    void moveFocusMark(std::size_t link);
    void tellFocus();
    [[nodiscard]] std::vector<QRectF> piecesOfLink(std::size_t link) const;
    void forgetLayout();
    const QTextLayout& layoutAt(int width) const;
    [[nodiscard]] QSize sizeAt(int width) const;

    NxAttributedString m_text;
    std::vector<NxAttributedString::LinkRange> m_links;
    QColor m_textColor;
    QColor m_linkColor;
    QColor m_focusMarkColor;
    Qt::CursorShape m_currentCursor = Qt::ArrowCursor;
    std::size_t m_focusedLink = 0;
    QTimer m_focusTelling; //!< puts it off to the event loop's next turn

    struct Laid;
    mutable std::unique_ptr<Laid> m_laid; //!< none until it is asked for, and after a change
};

} // namespace fv2
