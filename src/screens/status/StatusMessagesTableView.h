// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxScrollView.h"

#include <vector>

namespace fv2 {

class StatusMessagesTableView;

//! What the table asks for its rows.
class StatusMessagesTableSource {
public:
    virtual ~StatusMessagesTableSource() = default;
    virtual int numberOfRows(const StatusMessagesTableView& table) = 0;
    //! None leaves the row empty.
    virtual QWidget* viewForRow(const StatusMessagesTableView& table, int row) = 0;
    //! In device-independent pixels; asked after the row's view has got its width.
    virtual double heightOfRow(const StatusMessagesTableView& table, int row) = 0;
    virtual void didAddRowView(const StatusMessagesTableView& table, QWidget& rowView, int row) = 0;
};

//! One column of rows, each of its own height, with a gap between; scrolls when they don't fit. Main thread only.
class StatusMessagesTableView final : public NxScrollView {
    Q_OBJECT
public:
    static constexpr int kMargin = 16; //!< around all rows
    static constexpr int kRowGap = 8;

    explicit StatusMessagesTableView(QWidget* parent = nullptr);

    //! The source gives number and content of rows, the delegate their heights; both must outlive the table's last
    //! reload. Each call reloads.
    void setDataSource(StatusMessagesTableSource& source);
    void setDelegate(StatusMessagesTableSource& delegate);

    //! Makes all rows anew. The place that is scrolled to stays; the old rows live on, unseen, until the event loop's
    //! next turn.
    void reloadData();

    //! Scrolls as little as is needed to show a place of a view in a row.
    void scrollTo(const QWidget& view, const QRect& place);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOutRows();

    StatusMessagesTableSource* m_source = nullptr;
    StatusMessagesTableSource* m_delegate = nullptr;
    QWidget* m_rows;
    std::vector<QWidget*> m_rowViews;
};

} // namespace fv2
