// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/status/StatusMessageItemSubviewController.h"
#include "screens/status/StatusMessagesTableView.h"

#include <memory>
#include <optional>
#include <vector>

namespace fv2 {

//! Makes the rows of the status messages and answers the table's questions about them. Main thread only; the page owns
//! it.
class StatusMessagesTableDelegate final : public StatusMessagesTableSource {
public:
    StatusMessagesTableDelegate(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                StatusMessagesTableView& tableView);
    //! Unlike rows that are replaced, which may be in the middle of a click, the last ones end here.
    ~StatusMessagesTableDelegate() override = default;
    StatusMessagesTableDelegate(const StatusMessagesTableDelegate&) = delete;
    StatusMessagesTableDelegate& operator=(const StatusMessagesTableDelegate&) = delete;

    //! Shows the model's messages; touches nothing while they are those that are shown.
    void updateFromModel(StatusMessagesTableView& tableView);

    int numberOfRows(const StatusMessagesTableView& table) override;
    QWidget* viewForRow(const StatusMessagesTableView& table, int row) override;
    double heightOfRow(const StatusMessagesTableView& table, int row) override;
    void didAddRowView(const StatusMessagesTableView& table, QWidget& rowView, int row) override;

private:
    using Messages = std::vector<FV2StatusMesssageListItem>;
    struct Focus {
        FV2StatusMesssageListItem message;
        std::size_t link;
    };

    //! Whether nothing but progress differs from what is shown; then shows it.
    bool showProgress(const Messages& messages);
    [[nodiscard]] StatusMessageItemSubview* itemView(int row) const;
    [[nodiscard]] std::optional<Focus> focus(const StatusMessagesTableView& tableView) const;
    void chainRowsForTab(StatusMessagesTableView& tableView) const;
    void giveFocusBack(const Focus& focus, StatusMessagesTableView& tableView) const;
    void removeAllStatusMessagedTableViewItems(const StatusMessagesTableView& tableView);

    FV2AppStateModel& appModel;
    FV2AppConfigModel& appConfigModel;
    std::vector<std::unique_ptr<StatusMessageItemSubviewController>>
        statusMessageItemViews; //!< know their views weakly
    Messages m_shown;
    bool firstTime = true;
    bool ready = false;
};

} // namespace fv2
