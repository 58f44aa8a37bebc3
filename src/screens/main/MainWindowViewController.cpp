// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/MainWindowViewController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2WindowSizes.h"
#include "shell/FV2WindowController.h"
#include "toolkit/NxQtColor.h"

#include <QGridLayout>
#include <QShortcut>

#include <array>

namespace fv2 {

namespace {

constexpr int kTaglineHeight = 36;

struct PageKey {
    Qt::Key key;
    eMainWindowContentSubViewType page;
};

//! With Ctrl.
constexpr std::array<PageKey, 2> kPageKeys{{
    {Qt::Key_1, eMainWindowContentSubViewType::ProtectionStatus},
    {Qt::Key_2, eMainWindowContentSubViewType::About},
}};

//! The page under `kept`, made now if it is shown for the first time.
template <class Page, class... Arguments>
FV2ViewController* page(std::unique_ptr<Page>& kept, const std::string& name, const Arguments&... arguments) {
    if (!kept) {
        logUi("MainWindowWindowController make ", name, " view");
        kept = std::make_unique<Page>(arguments...);
    }
    logUi("MainWindowWindowController set ", name, " as view");
    return kept.get();
}

} // namespace

MainWindowViewController::MainWindowViewController(const std::weak_ptr<FV2AppStateModel>& model,
                                                   FV2WindowDelegate& registry)
    : FV2ViewController(model, new FV2View)
    , m_registry(registry) {
    initsubview();
}

MainWindowViewController::~MainWindowViewController() {
    logUi("MainWindowViewController.deinit for ", description(*this));
}

void MainWindowViewController::setUp() {
    subviewLeftMenuController = std::make_unique<LeftMenuSubviewController>(appModel, m_registry);
    logUi("new LeftMenuSubviewController is ", description(*subviewLeftMenuController));
    subviewMainContent = new FV2View(view());
    switchContentSubview(eMainWindowContentSubViewType::ProtectionStatus);
    subviewTagLineViewController = std::make_unique<TaglineViewController>(appModel);

    QWidget* const leftMenu = subviewLeftMenuController->view();
    QWidget* const tagline = subviewTagLineViewController->view();
    logUi("Doing constraints for subviews. left menu ", description(*leftMenu), ", content ",
          description(*subviewMainContent), ", tagline ", description(*tagline));
    leftMenu->setFixedWidth(windowSize("mainwindow_leftmenuwidth"));
    leftMenu->setMinimumHeight(windowSize("mainwindowy") - kTaglineHeight);
    subviewMainContent->setMinimumSize(windowSize("main_window_contentwidth"),
                                       windowSize("mainwindowy") - kTaglineHeight);
    tagline->setFixedHeight(kTaglineHeight);
    auto* const columns = new QGridLayout(view());
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(leftMenu, 0, 0, 2, 1);
    columns->addWidget(subviewMainContent, 0, 1);
    columns->addWidget(tagline, 1, 1);
    columns->setRowStretch(0, 1);
    columns->setColumnStretch(1, 1);

    subviewLeftMenuController->selectRow(subviewCurrentContentType);
    subviewLeftMenuController->takeFocus();
    addShortcuts();
}

//! The pages' own colour also lies under them: at fractional scales a seam between two views shows what is below.
void MainWindowViewController::refreshColours(const FV2AppConfigModel& config) {
    static_cast<FV2View*>(view())->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
}

void MainWindowViewController::addShortcuts() {
    for (const PageKey& entry : kPageKeys) {
        auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | entry.key), view());
        connect(shortcut, &QShortcut::activated, this,
                [this, page = entry.page] { subviewLeftMenuController->chooseRow(page); });
    }
}

FV2ViewController* MainWindowViewController::pageFor(eMainWindowContentSubViewType kind) {
    FV2ViewController* shown = nullptr;
    switch (kind) {
    case eMainWindowContentSubViewType::None:
    case eMainWindowContentSubViewType::ProtectionStatus:
        shown = page(subviewProtectionStatusController, "prot stat", appModel);
        logRelease("Switched content view to Protection Status");
        break;
    case eMainWindowContentSubViewType::Setup:
        shown = page(subviewSetupController, "setup", appModel);
        break;
    case eMainWindowContentSubViewType::About:
        shown = page(subviewAboutController, "about", appModel);
        logRelease("Switched content view to About");
        break;
    }
    return shown;
}

void MainWindowViewController::switchContentSubview(eMainWindowContentSubViewType kind) {
    if (subviewCurrentContentViewController != nullptr) {
        // A page is there when this line is written; its text has become what people search logs for.
        logUi("MainWindowWindowController no active view");
        if (subviewCurrentContentType == kind) {
            logUi("MainWindowWindowController active view exists");
            return;
        }
    }
    subviewCurrentContentViewController = pageFor(kind);
    if (subviewCurrentContentViewController != nullptr) {
        logUi("MainWindowWindowController use new sub view");
        subviewCurrentContentType = kind;
        QWidget* const shown = subviewCurrentContentViewController->view();
        shown->setParent(subviewMainContent);
        if (auto* const pinned = qobject_cast<FV2View*>(shown))
            pinned->pinToSuperview();
    } else {
        subviewCurrentContentType = eMainWindowContentSubViewType::None;
    }
    updateFromModel();
}

void MainWindowViewController::selectPage(eMainWindowContentSubViewType kind) {
    subviewLeftMenuController->selectRow(kind);
}

void MainWindowViewController::updateFromModel() {
    if (subviewProtectionStatusController)
        subviewProtectionStatusController->updateFromModel();
    if (subviewAboutController)
        subviewAboutController->updateFromModel();
    if (subviewLeftMenuController)
        subviewLeftMenuController->updateFromModel();
}

} // namespace fv2
