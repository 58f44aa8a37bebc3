// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/main/LeftMenuSubviewController.h"
#include "screens/main/Pages.h"
#include "screens/main/TaglineViewController.h"
#include "screens/main/eMainWindowContentSubViewType.h"
#include "shell/FV2ViewController.h"

#include <QPointer>

#include <array>
#include <memory>

namespace fv2 {

//! Left menu, the current page and the tagline. Pages are made when first shown and then kept. Main thread only.
class MainWindowViewController final : public FV2ViewController {
    Q_OBJECT
public:
    MainWindowViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);
    ~MainWindowViewController() override;

    //! Fills the view; once, after it has got its window. The first page is the protection status.
    void setUp();

    //! Shows a page; nothing happens for the one that is shown.
    void switchContentSubview(eMainWindowContentSubViewType kind);
    //! The same by way of the left menu, as if its row had been chosen.
    void selectPage(eMainWindowContentSubViewType kind);

    void updateFromModel() override;

    [[nodiscard]] eMainWindowContentSubViewType currentContentType() const { return subviewCurrentContentType; }
    [[nodiscard]] FV2ViewController* currentContentViewController() const {
        return subviewCurrentContentViewController;
    }

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    //! None for a kind that is not in the table.
    FV2ViewController* pageFor(eMainWindowContentSubViewType kind);
    void onPageChosen(eMainWindowContentSubViewType kind);
    void addShortcuts();

    std::unique_ptr<LeftMenuSubviewController> subviewLeftMenuController;
    FV2View* subviewMainContent = nullptr;
    std::array<std::unique_ptr<FV2ViewController>, kPageCount> m_pages; //!< in the order of the table
    std::unique_ptr<TaglineViewController> subviewTagLineViewController;
    eMainWindowContentSubViewType subviewCurrentContentType = eMainWindowContentSubViewType::None;
    QPointer<FV2ViewController> subviewCurrentContentViewController;
};

} // namespace fv2
