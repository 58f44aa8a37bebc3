// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

namespace fv2 {

//! Paints what lies under a row's cell: nothing, or the mark of the selected row, with a frame when the user has come
//! to the menu by keyboard. The desktop's own style would choose other colours. Main thread only.
class LeftMenuRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    LeftMenuRowDelegate(int rowHeight, QObject* parent);

    void setColours(const QColor& highlight, const QColor& focus);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    //! A cell lets the mouse pass, so the row shows the tooltip of a text that is cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int m_rowHeight;
    QColor m_highlight;
    QColor m_focus;
};

} // namespace fv2
