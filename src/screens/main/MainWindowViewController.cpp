// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/MainWindowViewController.h"

#include "logging/FV2Logging.h"
#include "resources/FV2WindowSizes.h"
#include "shell/FV2WindowController.h"
#include "toolkit/NxQtColor.h"

#include <QGridLayout>
#include <QShortcut>

#include <algorithm>

namespace fv2 {

namespace {

constexpr int kTaglineHeight = 36;

} // namespace

MainWindowViewController::MainWindowViewController(FV2AppStateModel& model, FV2AppConfigModel& configModel)
    : FV2ViewController(model, configModel, new FV2View) {
    initsubview();
}

MainWindowViewController::~MainWindowViewController() {
    logUi("MainWindowViewController.deinit for ", description(*this));
}

void MainWindowViewController::setUp() {
    subviewLeftMenuController = std::make_unique<LeftMenuSubviewController>(appModel, appConfigModel);
    logUi("new LeftMenuSubviewController is ", description(*subviewLeftMenuController));
    subviewMainContent = new FV2View(view());
    switchContentSubview(eMainWindowContentSubViewType::ProtectionStatus);
    subviewTagLineViewController = std::make_unique<TaglineViewController>(appModel, appConfigModel);

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

    subviewLeftMenuController->selectRow(subviewCurrentContentType); // nobody listens yet: the page is there
    connect(subviewLeftMenuController.get(), &LeftMenuSubviewController::pageChosen, this,
            &MainWindowViewController::onPageChosen);
    subviewLeftMenuController->takeFocus();
    addShortcuts();
}

//! The pages' own colour also lies under them: at fractional scales a seam between two views shows what is below.
void MainWindowViewController::refreshColours(const FV2AppConfigModel& config) {
    view()->setBackgroundColor(toQColor(config.colours().colourSectionBackground));
}

void MainWindowViewController::addShortcuts() {
    for (const MainWindowPage& page : kPages) {
        if (!page.key)
            continue;
        auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | *page.key), view());
        connect(shortcut, &QShortcut::activated, this,
                [this, kind = page.kind] { subviewLeftMenuController->chooseRow(kind); });
    }
}

FV2ViewController* MainWindowViewController::pageFor(eMainWindowContentSubViewType kind) {
    const bool isNone = kind == eMainWindowContentSubViewType::None;
    const auto* const page = std::ranges::find(kPages, isNone ? eMainWindowContentSubViewType::ProtectionStatus : kind,
                                               &MainWindowPage::kind);
    if (page == kPages.end())
        return nullptr;
    auto& kept = m_pages.at(static_cast<std::size_t>(page - kPages.begin()));
    if (!kept) {
        logUi("MainWindowWindowController make ", page->logName, " view");
        kept = page->make(appModel, appConfigModel);
    }
    logUi("MainWindowWindowController set ", page->logName, " as view");
    if (page->logTitle != nullptr)
        logRelease("Switched content view to ", page->logTitle);
    return kept.get();
}

void MainWindowViewController::onPageChosen(eMainWindowContentSubViewType kind) {
    logUi("tableViewSelectionDidChange switchContentSubview");
    switchContentSubview(kind);
    logUi("tableViewSelectionDidChange switchContentSubview done");
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
        FV2View* const shown = subviewCurrentContentViewController->view();
        shown->setParent(subviewMainContent);
        shown->pinToSuperview();
    } else {
        subviewCurrentContentType = eMainWindowContentSubViewType::None;
    }
    updateFromModel();
}

void MainWindowViewController::selectPage(eMainWindowContentSubViewType kind) {
    subviewLeftMenuController->selectRow(kind);
}

void MainWindowViewController::updateFromModel() {
    for (const auto& page : m_pages)
        if (page)
            page->updateFromModel();
    if (subviewLeftMenuController)
        subviewLeftMenuController->updateFromModel();
}

} // namespace fv2
