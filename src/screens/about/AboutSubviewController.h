// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/about/AboutLineView.h"
#include "shell/FV2ViewController.h"
#include "toolkit/NxButton.h"

#include <QPointer>

#include <array>

namespace fv2 {

//! The second page: what this program and this computer are, the last synchronisation and a button for the next one,
//! help. Main thread only.
class AboutSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    AboutSubviewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

    void updateFromModel() override;

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    void ProxySyncButton();
    void onHelp();
    void alignLabels();
    void enableProxySync(bool enabled);
    [[nodiscard]] std::array<QPointer<AboutLineView>, 8> lines() const;

    QPointer<AboutLineView> fieldProductName;
    QPointer<AboutLineView> fieldProductVersion;
    QPointer<AboutLineView> m_fieldAgentVersion; //!< the other one is the service's
    QPointer<NxView> viewHeaderSeperator;
    QPointer<NxView> viewSeperator;
    QPointer<AboutLineView> fieldComputerName;
    QPointer<AboutLineView> fieldOperatingSystem;
    QPointer<AboutLineView> fieldMachine;
    QPointer<AboutLineView> fieldUUID;
    QPointer<AboutLineView> fieldLastORMSync;
    QPointer<NxButton> buttonProxySync;
    QPointer<NxButton> buttonInstalledComponents;
    QPointer<QWidget> m_focusAfterSync; //!< where Qt put the keyboard when the button that had it was disabled
};

} // namespace fv2
