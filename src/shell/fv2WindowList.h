// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2Types.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace fv2 {

class FV2Window;
class FV2WindowController;

//! The registered windows in the order of their registration. Positions count from 1; 0 is none. Controllers are held
//! weakly: one that has gone away is passed over. Main thread only.
class fv2WindowList {
public:
    //! Appends an item, modal if there were others before it; the new count.
    std::size_t addWindow(fv2Window kind, const std::shared_ptr<FV2WindowController>& controller);
    //! The kind of the item that was removed; None, and nothing is removed, for a position that there is not.
    fv2Window removeWindow(std::size_t position);

    [[nodiscard]] std::size_t count() const { return fv2Windows.size(); }
    //! The first item of that kind.
    [[nodiscard]] std::size_t indexOfWindow(fv2Window kind) const;
    //! The first item of that controller.
    [[nodiscard]] std::size_t indexOfController(const FV2WindowController& controller) const;
    [[nodiscard]] bool isModalAt(std::size_t position) const;
    [[nodiscard]] FV2Window* windowAt(std::size_t position) const;
    [[nodiscard]] std::shared_ptr<FV2WindowController> controllerAt(std::size_t position) const;
    //! The windows that still exist.
    [[nodiscard]] std::vector<FV2Window*> windows() const;

    //! Hides every window; they stay registered.
    void orderOutAll() const;
    //! Shows every window, the last one in front with the keyboard; whether there was any item.
    bool showAll(bool byUser = true) const;

private:
    struct fv2WindowListItem {
        fv2Window kind = fv2Window::None;
        std::weak_ptr<FV2WindowController> windowController;
        bool bIsModal = false;
    };

    [[nodiscard]] const fv2WindowListItem* itemAt(std::size_t position) const;

    std::vector<fv2WindowListItem> fv2Windows;
};

} // namespace fv2
