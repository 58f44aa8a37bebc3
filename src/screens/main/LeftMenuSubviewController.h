// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/main/LeftMenuTableView.h"
#include "screens/main/Pages.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxLeftMenuCellView.h"

#include <QPointer>

#include <vector>

namespace fv2 {

class LeftMenuRowDelegate;

//! The root view of the left menu.
class LeftMenuSubview final : public FV2View {
    Q_OBJECT
public:
    using FV2View::FV2View;
};

//! The rows that choose the main window's page. The first one shows the overall state as its icon and the number of
//! status messages as a bubble. Main thread only.
class LeftMenuSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    LeftMenuSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);
    ~LeftMenuSubviewController() override;

    void updateFromModel() override;

    //! Selects the row of that page, if there is one, without asking the service anew.
    void selectRow(eMainWindowContentSubViewType page);
    //! The same as if the user had clicked the row.
    void chooseRow(eMainWindowContentSubViewType page);
    void takeFocus();

Q_SIGNALS:
    //! A row was selected, or pressed again.
    void pageChosen(fv2::eMainWindowContentSubViewType page);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    void viewDidLoad();
    [[nodiscard]] int rowOf(eMainWindowContentSubViewType page) const;
    void addRow(const MainWindowPage& page);
    [[nodiscard]] NxLeftMenuCellView* cellAt(int row) const;
    void colourCell(int row, bool selected);
    void onCurrentRowChanged(int row);
    void onSelectedRowPressed(int row);
    void tableViewSelectionIsChanging(int row);
    void tableViewSelectionDidChange(int row);

    QPointer<NxView> leftmenuView;
    QPointer<LeftMenuTableView> tableView;
    QPointer<NxView> rightBorder;
    QPointer<NxTextField> m_productName;
    LeftMenuRowDelegate* m_rows = nullptr;
    std::vector<const MainWindowPage*> menuItemsArray; //!< the pages with a row
    int lastSelectedRow = -1;
    bool unloading = false;
    bool m_selecting = false; //!< the program selects, not the user
};

} // namespace fv2
