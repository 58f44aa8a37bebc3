// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QListWidget>

namespace fv2 {

//! The left menu's one column of rows. Main thread only.
class LeftMenuTableView final : public QListWidget {
    Q_OBJECT
public:
    explicit LeftMenuTableView(QWidget* parent = nullptr);

Q_SIGNALS:
    //! The user pressed the row that was selected already.
    void selectedRowPressed(int row);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    //! There is always one row selected: a press beside the rows, or with a key held, leaves it.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void followSelection();
};

} // namespace fv2
