// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuSubviewController.h"

#include "logging/FV2Logging.h"
#include "model/FV2StatusLook.h"
#include "resources/FV2WindowSizes.h"
#include "screens/main/LeftMenuRowDelegate.h"
#include "screens/main/MainWindowWindowController.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/SpokenStatus.h"
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

LeftMenuSubviewController::LeftMenuSubviewController(const std::weak_ptr<FV2AppStateModel>& model,
                                                     FV2WindowDelegate& registry)
    : FV2ViewController(model, makeView())
    , m_registry(registry) {
    logTrace("LeftMenuSubviewController.init super.init");
    Ui::LeftMenuSubview outlets;
    outlets.setupUi(static_cast<FV2View*>(view()));
    leftmenuView = outlets.leftmenuView;
    tableView = outlets.tableView;
    rightBorder = outlets.rightBorder;
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
    const auto model = appModel.lock();
    menuItemsArray = {
        {"IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS", "home_template", eMainWindowContentSubViewType::ProtectionStatus,
         model ? statusMessageCount(model->state()) : 0, "IDUS_MGUI_PROTECTION_STATUS_INDICATOR_ACC_HELP"},
        {"IDUS_MGUI_LEFT_MENU_ABOUT", "talvik_about_template", eMainWindowContentSubViewType::About, 0,
         "IDUS_MGUI_ABOUT_INDICATOR_ACC_HELP"},
    };
    for (const menuItem& item : menuItemsArray)
        addRow(item);
    connect(tableView, &QListWidget::currentRowChanged, this, &LeftMenuSubviewController::onCurrentRowChanged);
    connect(tableView, &LeftMenuTableView::selectedRowPressed, this, &LeftMenuSubviewController::onSelectedRowPressed);
}

void LeftMenuSubviewController::addRow(const menuItem& item) {
    const QString title = translated(QString::fromUtf8(item.title));
    auto* const row = new QListWidgetItem(tableView);
    row->setData(Qt::AccessibleTextRole, title);
    row->setData(Qt::AccessibleDescriptionRole, translated(QString::fromUtf8(item.help)));
    auto* const cell = new NxLeftMenuCellView(tableView);
    cell->setObjectName(QStringLiteral("LeftMenuCell"));
    cell->textField().setText(title);
    cell->imageView().setImageName(QString::fromUtf8(item.icon));
    cell->counterImage().hide();
    cell->counterNumberField().hide();
    tableView->setItemWidget(row, cell);
    if (tableView->row(row) == 0)
        updateCounter(*cell, item.counter);
}

long LeftMenuSubviewController::statusMessageCount(const FV2AppState& state) {
    const auto count = static_cast<long>(state.statusMessageList.size());
    return count == 1 && state.overallState == fv2StatusStateType::Green ? 0 : count;
}

NxLeftMenuCellView* LeftMenuSubviewController::cellAt(int row) const {
    if (unloading || tableView == nullptr || row < 0 || row >= tableView->count())
        return nullptr;
    return qobject_cast<NxLeftMenuCellView*>(tableView->itemWidget(tableView->item(row)));
}

void LeftMenuSubviewController::updateCounter(NxLeftMenuCellView& cell, long count) {
    const auto model = appModel.lock();
    if (model == nullptr)
        return;
    const FV2StatusLook& look = lookOf(model->state().overallState);
    const QString number = QString::number(count);
    cell.counterImage().setVisible(count != 0);
    cell.counterNumberField().setVisible(count != 0);
    if (count != 0) {
        cell.counterImage().setImageName(QString::fromUtf8(look.numberBubble));
        cell.counterNumberField().setText(number);
        const bool dark = look.isNumberDark && model->appConfigModel() != nullptr;
        cell.counterNumberField().setTextColor(
            dark ? toQColor(model->appConfigModel()->colours().colourLeftMenuBackground) : QColor(Qt::white));
    }
    cell.imageView().setImageName(QString::fromUtf8(look.menuIcon));
    // Screen readers are told of every change, so there must be one.
    const QString help = translated(QString::fromUtf8(menuItemsArray.front().help));
    const QString spoken =
        count == 0 ? help
                   : spokenWithStatus(number, translated(QString::fromUtf8(look.spoken))) + QStringLiteral(". ") + help;
    if (QListWidgetItem* const row = tableView->item(0); row->data(Qt::AccessibleDescriptionRole).toString() != spoken)
        row->setData(Qt::AccessibleDescriptionRole, spoken);
}

void LeftMenuSubviewController::updateFromModel() {
    const auto model = appModel.lock();
    NxLeftMenuCellView* const cell = cellAt(0);
    if (model != nullptr && cell != nullptr)
        updateCounter(*cell, statusMessageCount(model->state()));
}

void LeftMenuSubviewController::refreshColours(const FV2AppConfigModel& config) {
    const auto& colours = config.colours();
    const QColor background = toQColor(colours.colourLeftMenuBackground);
    static_cast<FV2View*>(view())->setBackgroundColor(background);
    leftmenuView->setBackgroundColor(background);
    rightBorder->setBackgroundColor(background);
    m_rows->setColours(toQColor(colours.colourLeftMenuHighlight), toQColor(colours.colourLeftMenuTextGrayed));
    QPalette changed;
    changed.setColor(QPalette::Base, background);
    tableView->setPalette(changed);
    for (int row = 0; row < tableView->count(); ++row)
        colourCell(row, row == tableView->currentRow());
    tableView->viewport()->update();
}

void LeftMenuSubviewController::colourCell(int row, bool selected) {
    const auto model = appModel.lock();
    NxLeftMenuCellView* const cell = cellAt(row);
    if (cell == nullptr || model == nullptr || model->appConfigModel() == nullptr)
        return;
    const auto& colours = model->appConfigModel()->colours();
    const QColor colour = toQColor(selected ? colours.colourLeftMenuText : colours.colourLeftMenuTextGrayed);
    cell->textField().setTextColor(colour);
    cell->imageView().setTintColor(colour);
}

//! -1 where no row leads to the page.
int LeftMenuSubviewController::rowOf(eMainWindowContentSubViewType page) const {
    const auto found = std::find_if(menuItemsArray.begin(), menuItemsArray.end(),
                                    [page](const menuItem& item) { return item.id == page; });
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
    if (const auto model = appModel.lock())
        model->syncCommsAsync(false, fv2SyncSource::Moved, false);
}

void LeftMenuSubviewController::tableViewSelectionDidChange(int row) {
    if (static_cast<std::size_t>(row) >= menuItemsArray.size())
        std::abort();
    const auto main =
        std::dynamic_pointer_cast<MainWindowWindowController>(m_registry.registeredController(fv2Window::Main));
    if (main == nullptr)
        return;
    logUi("tableViewSelectionDidChange switchContentSubview");
    if (MainWindowViewController* const pages = main->viewController())
        pages->switchContentSubview(menuItemsArray[static_cast<std::size_t>(row)].id);
    logUi("tableViewSelectionDidChange switchContentSubview done");
}

} // namespace fv2
