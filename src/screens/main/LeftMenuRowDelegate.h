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
    //! The configured height, or more where a cell's text needs it.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int m_rowHeight;
    QColor m_highlight;
    QColor m_focus;
};

} // namespace fv2
