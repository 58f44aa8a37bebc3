// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2WindowDelegate.h"

#include <gtest/gtest.h>

namespace fv2::test {

struct FakeWindow final : FV2MainWindowController {
    using FV2MainWindowController::FV2MainWindowController;
    void updateFromModel() override {
        ++updates;
        EXPECT_EQ(appModel.updateSemaphore().count(), 0);
    }
    void selectProtectionStatusPage() override {}

    int updates = 0;
};

struct FakePasswordWindow final : FV2PasswordWindowController {
    using FV2PasswordWindowController::FV2PasswordWindowController;
    void postponeAndClose() override {}
    void forget() override {}
};

//! Makes empty windows, or none.
struct FakeWindows final : FV2WindowFactory {
    explicit FakeWindows(FV2AppStateModel& appModel)
        : model(appModel) {}
    std::shared_ptr<FV2MainWindowController> makeMainWindow() override { return make<FakeWindow>(); }
    std::shared_ptr<FV2PasswordWindowController> makePasswordWindow(bool /*encrypting*/) override {
        return make<FakePasswordWindow>();
    }

    FV2AppStateModel& model;
    FV2AppConfigModel config{[] { return false; }, "", "", {}};
    std::function<void()> whileMaking = [] {};
    bool makesNone = false;
    int made = 0;

private:
    template <class Window>
    std::shared_ptr<Window> make() {
        whileMaking();
        ++made;
        return makesNone ? nullptr : makeController<Window>(model, std::make_unique<FV2Window>(QSize(100, 100)));
    }
};

} // namespace fv2::test
