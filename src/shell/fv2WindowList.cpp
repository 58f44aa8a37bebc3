// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/fv2WindowList.h"

#include "shell/FV2Window.h"
#include "shell/FV2WindowController.h"

#include <algorithm>

namespace fv2 {

std::size_t fv2WindowList::addWindow(fv2Window kind, const std::shared_ptr<FV2WindowController>& controller) {
    fv2Windows.push_back({.kind = kind, .windowController = controller, .bIsModal = !fv2Windows.empty()});
    return fv2Windows.size();
}

fv2Window fv2WindowList::removeWindow(std::size_t position) {
    const fv2WindowListItem* const item = itemAt(position);
    if (item == nullptr)
        return fv2Window::None;
    const fv2Window kind = item->kind;
    fv2Windows.erase(fv2Windows.begin() + static_cast<std::ptrdiff_t>(position - 1));
    return kind;
}

std::size_t fv2WindowList::indexOfWindow(fv2Window kind) const {
    const auto found = std::find_if(fv2Windows.begin(), fv2Windows.end(),
                                    [kind](const fv2WindowListItem& item) { return item.kind == kind; });
    return found == fv2Windows.end() ? 0 : static_cast<std::size_t>(found - fv2Windows.begin()) + 1;
}

std::size_t fv2WindowList::indexOfController(const FV2WindowController& controller) const {
    const auto found = std::find_if(fv2Windows.begin(), fv2Windows.end(), [&controller](const fv2WindowListItem& item) {
        return item.windowController.lock().get() == &controller;
    });
    return found == fv2Windows.end() ? 0 : static_cast<std::size_t>(found - fv2Windows.begin()) + 1;
}

const fv2WindowList::fv2WindowListItem* fv2WindowList::itemAt(std::size_t position) const {
    return position == 0 || position > fv2Windows.size() ? nullptr : &fv2Windows[position - 1];
}

bool fv2WindowList::isModalAt(std::size_t position) const {
    const fv2WindowListItem* const item = itemAt(position);
    return item != nullptr && item->bIsModal;
}

FV2Window* fv2WindowList::windowAt(std::size_t position) const {
    const auto controller = controllerAt(position);
    return controller ? &controller->window() : nullptr;
}

std::shared_ptr<FV2WindowController> fv2WindowList::controllerAt(std::size_t position) const {
    const fv2WindowListItem* const item = itemAt(position);
    return item == nullptr ? nullptr : item->windowController.lock();
}

std::vector<FV2Window*> fv2WindowList::windows() const {
    std::vector<FV2Window*> all;
    for (const fv2WindowListItem& item : fv2Windows)
        if (const auto controller = item.windowController.lock())
            all.push_back(&controller->window());
    return all;
}

void fv2WindowList::orderOutAll() const {
    for (FV2Window* const window : windows())
        window->orderOut();
}

bool fv2WindowList::showAll(bool byUser) const {
    const std::vector<FV2Window*> all = windows();
    for (FV2Window* const window : all)
        if (window == all.back())
            window->makeKeyAndOrderFront(byUser);
        else
            window->orderFront();
    return !fv2Windows.empty();
}

} // namespace fv2
