// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/StatusMessagesTableDelegate.h"

#include "logging/FV2Logging.h"
#include "shell/FV2WindowController.h"

#include <algorithm>

namespace fv2 {

namespace {

void trace(const std::string& text) {
    log(FV2LoggingLevel::trace, {text});
}

} // namespace

StatusMessagesTableDelegate::StatusMessagesTableDelegate(std::weak_ptr<FV2AppStateModel> model,
                                                         StatusMessagesTableView& tableView)
    : appModel(std::move(model)) {
    tableView.setDelegate(*this);
    tableView.setDataSource(*this);
    ready = true;
}

void StatusMessagesTableDelegate::updateFromModel(StatusMessagesTableView& tableView) {
    const auto model = appModel.lock();
    if (model == nullptr)
        return;
    trace("StatusMessagesTableDelegate.updateFromModel");
    const Messages& messages = model->state().statusMessageList;
    if (!firstTime && messages == m_shown)
        return;
    const auto focused = focus();
    if (focused) // goes nowhere else meanwhile: screen readers would read out where
        tableView.window()->focusWidget()->clearFocus();
    removeAllStatusMessagedTableViewItems(tableView);
    for (const FV2StatusMesssageListItem& message : messages) {
        trace("StatusMessagesTableDelegate -> Creating status message item " +
              std::to_string(statusMessageItemViews.size()));
        auto item = std::make_unique<StatusMessageItemSubviewController>(appModel, message);
        StatusMessageItemTextAndLink* const text = item->textView();
        QObject::connect(text, &NxTextAndLinksView::linkFocused, &tableView,
                         [&tableView, text](const QRect& place) { tableView.scrollTo(*text, place); });
        statusMessageItemViews.push_back(std::move(item));
    }
    firstTime = false;
    m_shown = messages;
    tableView.reloadData();
    if (focused)
        giveFocusBack(*focused, tableView);
}

std::optional<StatusMessagesTableDelegate::Focus> StatusMessagesTableDelegate::focus() const {
    for (std::size_t row = 0; row < statusMessageItemViews.size(); ++row)
        if (itemView(static_cast<int>(row)) != nullptr)
            if (const auto link = statusMessageItemViews[row]->textView()->focusedLink())
                return Focus{m_shown[row], *link};
    return std::nullopt;
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
            text->setFocusedLink(focus.link);
            return;
        }
    }
    tableView.setFocus(Qt::OtherFocusReason);
}

//! The rows may be in the middle of a click, so they end in the event loop's next turn.
void StatusMessagesTableDelegate::removeAllStatusMessagedTableViewItems(const StatusMessagesTableView& tableView) {
    trace("StatusMessagesTableViewDelegate.removeAllStatusMessagedTableViewItems for " + description(tableView));
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
        trace("StatusMessagesTableDelegate - numberOfRows NOT READY");
        return 0;
    }
    trace("StatusMessagesTableDelegate - numberOfRows " + std::to_string(statusMessageItemViews.size()));
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
