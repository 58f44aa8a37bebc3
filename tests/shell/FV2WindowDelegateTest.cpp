// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2WindowDelegate.h"

#include "model/Fakes.h"
#include "shell/FakeWindows.h"
#include "support/QtLoop.h"
#include "toolkit/NxButton.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

constexpr fv2Window kMain = fv2Window::Main;
constexpr fv2Window kEnc = fv2Window::Password_Encrypt;
constexpr fv2Window kDec = fv2Window::Password_Decrypt;

class WindowDelegateTest : public Model {
protected:
    //! The registry with these windows open, in this order.
    void reopen(const std::vector<fv2Window>& kinds) {
        registry.closeAll();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const fv2Window kind : kinds)
            registry.openWindow(kind, true);
        windows.made = 0;
    }
    FV2Window* window(fv2Window kind) const {
        const auto controller = registry.registeredController(kind);
        return controller ? &controller->window() : nullptr;
    }
    int semaphore() const { return model->updateSemaphore().count(); }

    void SetUp() override {
        model->setWndDelegate(&registry);
        interface.windows = [this](const FV2AppState& state) { registry.stateChanged(state); };
    }

    FakeWindows windows{*model};
    FV2WindowDelegate registry{*model, windows.config, windows};
};

TEST_F(WindowDelegateTest, ShowsAWindowOnlyWhereItsKindTheListTheAskerAndTheDesktopAllow) {
    struct Case {
        std::vector<fv2Window> open;
        fv2Window kind;
        bool whenUserAsks, whenModelAsks;
    };
    const std::vector<Case> cases{
        {{}, kMain, true, true},
        {{}, kEnc, true, true},
        {{}, kDec, true, true},
        {{}, fv2Window::None, true, true},
        {{kMain}, kMain, false, false},
        {{kMain}, fv2Window::None, false, false},
        {{kMain}, kEnc, true, false},
        {{kMain}, kDec, true, false},
        {{kEnc}, kEnc, false, false},
        {{kEnc}, kDec, false, false},
        {{kMain, kEnc}, kEnc, false, false},
        {{kMain, kEnc}, kDec, true, false},
    };
    for (const Case& tested : cases) {
        interface.silence = false;
        reopen(tested.open);
        SCOPED_TRACE("kind " + std::to_string(static_cast<int>(tested.kind)) + " over " +
                     std::to_string(tested.open.size()));
        EXPECT_EQ(registry.canShow(tested.kind, true), tested.whenUserAsks);
        EXPECT_EQ(registry.canShow(tested.kind, false), tested.whenModelAsks);
        interface.silence = true;
        EXPECT_EQ(registry.canShow(tested.kind, true), tested.whenUserAsks);
        EXPECT_FALSE(registry.canShow(tested.kind, false));

        interface.silence = false;
        const bool opens = tested.whenModelAsks && tested.kind != fv2Window::None;
        registry.openWindow(tested.kind, false);
        EXPECT_EQ(windows.made, opens ? 1 : 0);
        EXPECT_EQ(semaphore(), 1);
    }
}

TEST_F(WindowDelegateTest, HoldsTheSemaphoreWhileItBuildsAndFreesItOnEveryPath) {
    windows.whileMaking = [this] { EXPECT_EQ(semaphore(), 0); };
    windows.makesNone = true;
    for (const fv2Window kind : {fv2Window::None, kMain, kEnc, kDec}) {
        registry.openWindow(kind, true);
        EXPECT_EQ(semaphore(), 1);
        EXPECT_FALSE(registry.isOpen(kind));
    }
    EXPECT_EQ(windows.made, 3);
    windows.makesNone = false;
    int first = 0;
    QObject::connect(&registry, &FV2WindowDelegate::firstWindow, [&first] { ++first; });
    registry.openWindow(kMain, true);
    EXPECT_EQ(first, 1) << "not before there is one";
}

TEST_F(WindowDelegateTest, ADialogOverTheMainWindowKeepsItOpenUntilItCloses) {
    reopen({kMain, kEnc});
    FV2Window* const main = window(kMain);
    EXPECT_EQ(window(kEnc)->windowHandle()->transientParent(), main->windowHandle());
    EXPECT_EQ(window(kEnc)->windowHandle()->type(), Qt::Dialog) << "X11 knows parents of dialogs alone";
    EXPECT_FALSE(main->isCloseEnabled());
    QWindow* const handle = main->windowHandle();
    EXPECT_FALSE(handle->flags() & Qt::WindowCloseButtonHint);
    int refused = 0;
    QObject::connect(main, &FV2Window::closeRefused, [&refused] { ++refused; });
    main->close(); // as a desktop or Ctrl+W does
    EXPECT_TRUE(registry.isOpen(kMain) && refused == 1);
    QTest::keyClick(main, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(main->isVisible());

    window(kEnc)->closeWindow();
    EXPECT_FALSE(registry.isOpen(kEnc));
    EXPECT_TRUE(main->isCloseEnabled());
    EXPECT_TRUE(handle->flags() & Qt::WindowCloseButtonHint);
    main->close();
    EXPECT_FALSE(registry.isOpen(kMain));
}

TEST_F(WindowDelegateTest, ShowsAlertsOneAtATimeAndTellsOnlyOfTheFirstButton) {
    reopen({kMain});
    const FV2AlertContent question{"Really?", "<b>plain</b> & text", {"&Yes", "No"}};
    const FV2AlertContent report{"Failed", "text", {"OK"}};
    const auto sheet = [this] { return window(kMain)->attachedSheet(); };
    const auto choose = [&](const QString& label) {
        const QPointer<FV2AlertSheet> before = sheet();
        for (auto* const button : sheet()->findChildren<NxButton*>())
            if (button->accessibleName() == label)
                QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(runLoopUntil([&] { return before == nullptr; }));
        runLoopFor(std::chrono::milliseconds(10));
    };
    std::string chosen;
    const auto ask = [&](const FV2AlertContent& content) {
        registry.showAlert(kMain, content, [&chosen, content] { chosen += content.messageText; });
    };
    ask(question);
    ask(report);
    ask(question);
    ask(report);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->content(), question);
    EXPECT_EQ(sheet()->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet()->findChildren<QLabel*>().at(1)->text(), "<b>plain</b> & text");
    choose("No");
    EXPECT_EQ(chosen, "");
    EXPECT_EQ(sheet()->content(), report);
    choose("OK");
    EXPECT_EQ(chosen, "Failed");
    EXPECT_EQ(sheet(), nullptr) << "an alert that waits already is not shown twice";
    ask(question);
    choose("&Yes");
    EXPECT_EQ(chosen, "FailedReally?");
    window(kMain)->orderOut();
    ask(report);
    EXPECT_EQ(sheet(), nullptr) << "nobody sees the window";
    registry.showAll();
    EXPECT_EQ(sheet(), nullptr) << "the window is not on the screen yet";
    ASSERT_TRUE(runLoopUntil([&] { return sheet() != nullptr; }));
    window(kMain)->closeWindow();
    EXPECT_FALSE(registry.isOpen(kMain)) << "the program itself may close a window under an alert";
}

TEST_F(WindowDelegateTest, AnAlertOutlivesTheDialogItWasShownOnUnlessItIsAboutThatDialog) {
    reopen({kMain, kEnc});
    std::string chosen;
    for (const auto& [kind, title] : {std::pair{kEnc, "dialog"}, {kMain, "shown"}, {kMain, "waits"}})
        registry.showAlert(kind, {title, "text", {"OK"}}, [&chosen, title = title] { chosen += title; });
    QTest::keyClick(window(kEnc)->attachedSheet(), Qt::Key_Return); // answers the first
    ASSERT_TRUE(runLoopUntil([this] { return window(kEnc)->attachedSheet() == nullptr; }));
    ASSERT_TRUE(runLoopUntil([this] { return window(kEnc)->attachedSheet() != nullptr; }));
    registry.showAlert(kEnc, {"gone", "text", {"OK"}}, [&chosen] { chosen += "gone"; });
    window(kEnc)->closeWindow();
    for (int count = 0; count < 2; ++count) {
        ASSERT_TRUE(runLoopUntil([this] { return window(kMain)->attachedSheet() != nullptr; })) << count;
        QTest::keyClick(window(kMain)->attachedSheet(), Qt::Key_Return);
        ASSERT_TRUE(runLoopUntil([this] { return window(kMain)->attachedSheet() == nullptr; }));
    }
    runLoopFor(std::chrono::milliseconds(10));
    EXPECT_EQ(window(kMain)->attachedSheet(), nullptr);
    EXPECT_EQ(chosen, "dialogshownwaits");
}

TEST_F(WindowDelegateTest, HidesAndShowsTheSameWindowsAndClosesTheMainWindowWhenItIsAlone) {
    reopen({kMain});
    registry.hideApplicationWindows();
    EXPECT_FALSE(registry.isOpen(kMain));
    EXPECT_FALSE(registry.showAll());

    reopen({kMain, kDec});
    const FV2Window* const main = window(kMain);
    registry.showAlert(kMain, {"title", "text", {"OK"}}, [] {});
    EXPECT_EQ(window(kMain)->attachedSheet(), nullptr);
    EXPECT_NE(window(kDec)->attachedSheet(), nullptr) << "where the user can see what blocks both";
    registry.hideApplicationWindows();
    runLoopFor(std::chrono::milliseconds(10));
    EXPECT_EQ(window(kDec)->attachedSheet(), nullptr);
    EXPECT_TRUE(registry.isOpen(kMain) && registry.isOpen(kDec));
    EXPECT_FALSE(registry.isAnyWindowMain());
    EXPECT_TRUE(registry.showAll());
    EXPECT_TRUE(main->isVisible() && window(kDec)->isVisible());
    EXPECT_EQ(window(kMain), main);
    EXPECT_EQ(windows.made, 0);
}

TEST_F(WindowDelegateTest, ClosesPasswordDialogsThatTheStatusNoLongerCallsFor) {
    struct Case {
        int state; // 3 wants encryption, 7 decryption, 6 nothing
        bool encStays, decStays;
    };
    for (const Case& tested : {Case{3, true, false}, Case{7, false, true}, Case{6, false, false}}) {
        reopen({kMain, kEnc, kDec});
        refresh(statusAnswer(tested.state), fv2SyncSource::Moved, false);
        SCOPED_TRACE(tested.state);
        EXPECT_EQ(dynamic_cast<FakeWindow&>(*registry.registeredController(kMain)).updates, 1);
        EXPECT_EQ(registry.isOpen(kEnc), tested.encStays);
        EXPECT_EQ(registry.isOpen(kDec), tested.decStays);
        EXPECT_TRUE(registry.isOpen(kMain));
    }
}

} // namespace
} // namespace fv2::test
