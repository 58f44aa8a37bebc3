// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/status/StatusMessagesTableDelegate.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowController.h"

#include <algorithm>

namespace fv2 {

StatusMessagesTableDelegate::StatusMessagesTableDelegate(FV2AppStateModel& model, FV2AppConfigModel& configModel,
                                                         StatusMessagesTableView& tableView)
    : appModel(model)
    , appConfigModel(configModel) {
    tableView.setDelegate(*this);
    tableView.setDataSource(*this);
    ready = true;
}

void StatusMessagesTableDelegate::updateFromModel(StatusMessagesTableView& tableView) {
    logTrace("StatusMessagesTableDelegate.updateFromModel");
    const Messages& messages = appModel.state().statusMessageList;
    if (!firstTime && (messages == m_shown || showProgress(messages)))
        return;
    const auto focused = focus(tableView);
    if (focused) // no other focus meanwhile: screen readers would read it out
        tableView.window()->focusWidget()->clearFocus();
    removeAllStatusMessagedTableViewItems(tableView);
    for (const FV2StatusMesssageListItem& message : messages) {
        logTrace("StatusMessagesTableDelegate -> Creating status message item ", statusMessageItemViews.size());
        auto item = std::make_unique<StatusMessageItemSubviewController>(appModel, appConfigModel, message);
        for (NxTextAndLinksView* const text : item->textViews())
            QObject::connect(text, &NxTextAndLinksView::linkFocused, &tableView,
                             [&tableView, text](const QRect& place) { tableView.scrollTo(*text, place); });
        statusMessageItemViews.push_back(std::move(item));
    }
    firstTime = false;
    m_shown = messages;
    tableView.reloadData();
    chainRowsForTab(tableView);
    if (focused)
        giveFocusBack(*focused, tableView);
}

//! The rows stay, and with them what a screen reader reads.
bool StatusMessagesTableDelegate::showProgress(const Messages& messages) {
    const auto isSameButProgress = [](FV2StatusMesssageListItem shown, const FV2StatusMesssageListItem& now) {
        if (shown.percent && now.percent) {
            shown.percent = now.percent;
            shown.Text = now.Text;
        }
        return shown == now;
    };
    if (!std::ranges::equal(m_shown, messages, isSameButProgress))
        return false;
    for (std::size_t row = 0; row < messages.size(); ++row)
        if (messages[row].percent)
            statusMessageItemViews[row]->showProgress(messages[row]);
    m_shown = messages;
    return true;
}

//! New views come last in their window's order of Tab, behind all that follows the table. Qt only moves views, and
//! only behind views, that Tab stops at; the table is none while it has nothing to scroll.
void StatusMessagesTableDelegate::chainRowsForTab(StatusMessagesTableView& tableView) const {
    const Qt::FocusPolicy policy = tableView.focusPolicy();
    tableView.setFocusPolicy(Qt::TabFocus);
    QWidget* before = &tableView;
    for (const auto& item : statusMessageItemViews) {
        for (NxTextAndLinksView* const text : item->textViews()) {
            if (text->focusPolicy() == Qt::NoFocus)
                continue;
            QWidget::setTabOrder(before, text);
            before = text;
        }
    }
    tableView.setFocusPolicy(policy);
}

//! Asks the window, which knows it even while another window is in use.
std::optional<StatusMessagesTableDelegate::Focus>
StatusMessagesTableDelegate::focus(const StatusMessagesTableView& tableView) const {
    const auto row = std::ranges::find_if(statusMessageItemViews, [&](const auto& item) {
        return item->itemView() != nullptr && item->textView() == tableView.window()->focusWidget();
    });
    if (row == statusMessageItemViews.end())
        return std::nullopt;
    return Focus{m_shown[static_cast<std::size_t>(row - statusMessageItemViews.begin())],
                 (*row)->textView()->rememberedLink()};
}

//! A message is the same one while its title and its command are; its text may tell of progress.
void StatusMessagesTableDelegate::giveFocusBack(const Focus& focus, StatusMessagesTableView& tableView) const {
    const auto same = std::ranges::find_if(m_shown, [&](const FV2StatusMesssageListItem& message) {
        return message.Title == focus.message.Title && message.command == focus.message.command;
    });
    if (same != m_shown.end()) {
        const auto row = static_cast<std::size_t>(same - m_shown.begin());
        StatusMessageItemTextAndLink* const text = statusMessageItemViews[row]->textView();
        if (focus.link < text->links().size()) {
            text->giveFocusBack(focus.link);
            return;
        }
    }
    tableView.setFocus(Qt::OtherFocusReason);
}

//! The rows may be in the middle of a click, so they end in the event loop's next turn.
void StatusMessagesTableDelegate::removeAllStatusMessagedTableViewItems(const StatusMessagesTableView& tableView) {
    logTrace("StatusMessagesTableViewDelegate.removeAllStatusMessagedTableViewItems for ", description(tableView));
    for (auto& item : statusMessageItemViews)
        item.release()->deleteLater();
    statusMessageItemViews.clear();
}

StatusMessageItemSubview* StatusMessagesTableDelegate::itemView(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return row < 0 || index >= statusMessageItemViews.size() ? nullptr : statusMessageItemViews[index]->itemView();
}

int StatusMessagesTableDelegate::numberOfRows(const StatusMessagesTableView& /*table*/) {
    if (!ready) {
        logTrace("StatusMessagesTableDelegate - numberOfRows NOT READY");
        return 0;
    }
    logTrace("StatusMessagesTableDelegate - numberOfRows ", statusMessageItemViews.size());
    return static_cast<int>(statusMessageItemViews.size());
}

QWidget* StatusMessagesTableDelegate::viewForRow(const StatusMessagesTableView& /*table*/, int row) {
    return itemView(row);
}

double StatusMessagesTableDelegate::heightOfRow(const StatusMessagesTableView& /*table*/, int row) {
    const StatusMessageItemSubview* const item = itemView(row);
    return item == nullptr ? 0.0 : item->height();
}

void StatusMessagesTableDelegate::didAddRowView(const StatusMessagesTableView& /*table*/, QWidget& rowView, int row) {
    itemView(row)->setParent(&rowView);
}

} // namespace fv2
