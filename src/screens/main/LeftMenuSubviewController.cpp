// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuSubviewController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2WindowSizes.h"
#include "screens/main/LeftMenuCounter.h"
#include "screens/main/LeftMenuRowDelegate.h"
#include "shell/FV2WindowController.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxTranslated.h"
#include "ui_LeftMenuSubview.h"

#include <algorithm>
#include <cstdlib>

namespace fv2 {

namespace {

FV2View* makeView() {
    logTrace("LeftMenuSubviewController.init");
    return new LeftMenuSubview;
}

} // namespace

LeftMenuSubviewController::LeftMenuSubviewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, makeView()) {
    logTrace("LeftMenuSubviewController.init super.init");
    Ui::LeftMenuSubview outlets;
    outlets.setupUi(view());
    leftmenuView = outlets.leftmenuView;
    tableView = outlets.tableView;
    rightBorder = outlets.rightBorder;
    m_productName = outlets.productName;
    viewDidLoad();
    logTrace("LeftMenuSubviewController.init calling initSubview for ", description(*view()));
    initsubview();
    logTrace("LeftMenuSubviewController.init out");
}

LeftMenuSubviewController::~LeftMenuSubviewController() {
    unloading = true;
    if (tableView != nullptr)
        tableView->disconnect(this);
}

void LeftMenuSubviewController::viewDidLoad() {
    logTrace("LeftMenuSubviewController.viewDidLoad");
    m_rows = new LeftMenuRowDelegate(windowSize("leftmenu_rowheight"), tableView);
    tableView->setItemDelegate(m_rows);
    tableView->setAccessibleName(translated(QStringLiteral("IDUS_PRODUCT_DISPLAY_NAME")));
    for (const MainWindowPage& page : kPages)
        if (page.title != nullptr)
            addRow(page);
    updateFromModel();
    connect(tableView, &QListWidget::currentRowChanged, this, &LeftMenuSubviewController::onCurrentRowChanged);
    connect(tableView, &LeftMenuTableView::selectedRowPressed, this, &LeftMenuSubviewController::onSelectedRowPressed);
}

void LeftMenuSubviewController::addRow(const MainWindowPage& page) {
    menuItemsArray.push_back(&page);
    const QString title = translated(QString::fromUtf8(page.title));
    auto* const row = new QListWidgetItem(tableView);
    row->setData(Qt::AccessibleTextRole, title);
    row->setData(Qt::AccessibleDescriptionRole, translated(QString::fromUtf8(page.help)));
    auto* const cell = new NxLeftMenuCellView(tableView);
    cell->setObjectName(QStringLiteral("LeftMenuCell"));
    cell->textField().setText(title);
    cell->imageView().setImageName(QString::fromUtf8(page.icon));
    cell->counterImage().hide();
    cell->counterNumberField().hide();
    tableView->setItemWidget(row, cell);
    connect(cell, &NxLeftMenuCellView::wantedHeightChanged, m_rows,
            [this, row] { Q_EMIT m_rows->sizeHintChanged(tableView->indexFromItem(row)); });
}

NxLeftMenuCellView* LeftMenuSubviewController::cellAt(int row) const {
    if (unloading || tableView == nullptr || row < 0 || row >= tableView->count())
        return nullptr;
    return qobject_cast<NxLeftMenuCellView*>(tableView->itemWidget(tableView->item(row)));
}

void LeftMenuSubviewController::updateFromModel() {
    NxLeftMenuCellView* const cell = cellAt(0);
    if (cell == nullptr)
        return;
    LeftMenuCounter::show(*cell, appModel.state(), toQColor(appConfigModel.colours().colourLeftMenuBackground));
    // Screen readers are told of every change, so there must be one.
    const QString spoken =
        LeftMenuCounter::spoken(appModel.state(), translated(QString::fromUtf8(menuItemsArray.front()->help)));
    if (QListWidgetItem* const row = tableView->item(0); row->data(Qt::AccessibleDescriptionRole).toString() != spoken)
        row->setData(Qt::AccessibleDescriptionRole, spoken);
}

void LeftMenuSubviewController::refreshColours(const FV2AppConfigModel& config) {
    const auto& colours = config.colours();
    const QColor background = toQColor(colours.colourLeftMenuBackground);
    view()->setBackgroundColor(background);
    leftmenuView->setBackgroundColor(background);
    rightBorder->setBackgroundColor(background);
    m_rows->setColours(toQColor(colours.colourLeftMenuHighlight), toQColor(colours.colourLeftMenuText));
    m_productName->setTextColor(toQColor(colours.colourLeftMenuText));
    QPalette changed;
    changed.setColor(QPalette::Base, background);
    tableView->setPalette(changed);
    for (int row = 0; row < tableView->count(); ++row)
        colourCell(row, row == tableView->currentRow());
    tableView->viewport()->update();
}

void LeftMenuSubviewController::colourCell(int row, bool selected) {
    NxLeftMenuCellView* const cell = cellAt(row);
    if (cell == nullptr)
        return;
    const auto& colours = appConfigModel.colours();
    const QColor colour = toQColor(selected ? colours.colourLeftMenuText : colours.colourLeftMenuTextGrayed);
    cell->textField().setTextColor(colour);
    cell->imageView().setTintColor(colour);
}

//! -1 where no row leads to the page.
int LeftMenuSubviewController::rowOf(eMainWindowContentSubViewType page) const {
    const auto found = std::ranges::find(menuItemsArray, page, &MainWindowPage::kind);
    return found == menuItemsArray.end() ? -1 : static_cast<int>(found - menuItemsArray.begin());
}

void LeftMenuSubviewController::selectRow(eMainWindowContentSubViewType page) {
    const int row = rowOf(page);
    if (row < 0)
        return;
    m_selecting = true;
    tableView->setCurrentRow(row);
    m_selecting = false;
}

void LeftMenuSubviewController::chooseRow(eMainWindowContentSubViewType page) {
    const int row = rowOf(page);
    if (row >= 0 && row == tableView->currentRow())
        onSelectedRowPressed(row);
    else if (row >= 0)
        tableView->setCurrentRow(row);
}

void LeftMenuSubviewController::onSelectedRowPressed(int row) {
    tableViewSelectionIsChanging(row);
    tableViewSelectionDidChange(row);
}

void LeftMenuSubviewController::takeFocus() {
    tableView->setFocus();
}

void LeftMenuSubviewController::onCurrentRowChanged(int row) {
    if (row < 0)
        return;
    colourCell(lastSelectedRow, false);
    colourCell(row, true);
    if (m_selecting)
        lastSelectedRow = row;
    else
        tableViewSelectionIsChanging(row);
    tableViewSelectionDidChange(row);
}

void LeftMenuSubviewController::tableViewSelectionIsChanging(int row) {
    lastSelectedRow = row;
    logTrace("tableViewSelectionIsChanging calling syncCommsAsync");
    appModel.syncCommsAsync(false, fv2SyncSource::Moved, false);
}

void LeftMenuSubviewController::tableViewSelectionDidChange(int row) {
    if (static_cast<std::size_t>(row) >= menuItemsArray.size())
        std::abort();
    Q_EMIT pageChosen(menuItemsArray[static_cast<std::size_t>(row)]->kind);
}

} // namespace fv2
