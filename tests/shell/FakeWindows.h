// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2WindowDelegate.h"

#include <gtest/gtest.h>

namespace fv2::test {

//! An empty window that counts what the registry asks of it.
struct FakeWindow final : FV2MainWindowController {
    explicit FakeWindow(const std::weak_ptr<FV2AppStateModel>& model)
        : FV2MainWindowController(model, std::make_unique<FV2Window>(QSize(100, 100))) {}
    void updateFromModel() override {
        ++updates;
        EXPECT_EQ(appModel.lock()->updateSemaphore().count(), 0);
    }
    void selectProtectionStatusPage() override { ++selections; }

    int updates = 0;
    int selections = 0;
};

struct FakePasswordWindow final : FV2PasswordWindowController {
    explicit FakePasswordWindow(const std::weak_ptr<FV2AppStateModel>& model)
        : FV2PasswordWindowController(model, std::make_unique<FV2Window>(QSize(100, 100))) {}
    void postponeAndClose() override { window().closeWindow(); }
    void forget() override {}
};

struct FakeWindows final : FV2WindowFactory {
    std::shared_ptr<FV2MainWindowController> makeMainWindow(FV2WindowDelegate& /*registry*/) override {
        return make<FakeWindow>();
    }
    std::shared_ptr<FV2PasswordWindowController> makePasswordWindow(FV2WindowDelegate& /*registry*/,
                                                                    bool /*encrypting*/) override {
        return make<FakePasswordWindow>();
    }

    std::weak_ptr<FV2AppStateModel> model;
    std::function<void()> whileMaking = [] {};
    bool makesNone = false;
    int made = 0;

private:
    template <class Window>
    std::shared_ptr<Window> make() {
        whileMaking();
        ++made;
        return makesNone ? nullptr : makeController<Window>(model);
    }
};

} // namespace fv2::test
