// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/status/StatusMessageItemSubview.h"
#include "screens/status/StatusMessageItemTextAndLinkContainer.h"
#include "screens/status/StatusMessageProgressBar.h"
#include "screens/status/StatusMessageSupport.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"

#include <QPointer>

#include <vector>

namespace fv2 {

//! Fills one row with a status message; later only its progress changes. Main thread only; StatusMessagesTableDelegate
//! owns it.
class StatusMessageItemSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    StatusMessageItemSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                       const FV2StatusMesssageListItem& message);

    [[nodiscard]] StatusMessageItemSubview* itemView() const { return qobject_cast<StatusMessageItemSubview*>(view()); }
    [[nodiscard]] StatusMessageItemTextAndLink* textView() const { return statusTextAndLinkContainer->textView(); }
    //! The texts with links, from top to bottom.
    [[nodiscard]] std::vector<NxTextAndLinksView*> textViews() const;

    //! Of a message that had a percentage before: shows its text and its percentage.
    void showProgress(const FV2StatusMesssageListItem& message);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    void viewDidLoad(const FV2StatusMesssageListItem& message);
    void addSupport();
    void setTitleFont();
    void showPercent(std::optional<int> percent);
    void setBackground();

    QPointer<NxImageView> m_sign;
    QPointer<NxTextField> m_percent;
    QPointer<NxTextField> statusMessageTitle;
    QPointer<StatusMessageItemTextAndLinkContainer> statusTextAndLinkContainer;
    QPointer<StatusMessageProgressBar> m_progressBar;
    QPointer<StatusMessageSupport> m_support; //!< none where nobody is sent to the administrator, or none is named
};

} // namespace fv2
