// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "screens/AboutLineView.h"
#include "shell/FV2ViewController.h"

#include <QPointer>

#include <array>

namespace fv2 {

//! The second page: what this program and this computer are, and the last synchronisation. Main thread only.
class AboutSubviewController final : public FV2ViewController {
    Q_OBJECT
public:
    explicit AboutSubviewController(const std::weak_ptr<FV2AppStateModel>& appModel);

    void updateFromModel() override;

protected:
    void refreshColours(const FV2AppConfigModel& config) override;

private:
    void alignLabels();
    [[nodiscard]] std::array<QPointer<AboutLineView>, 7> lines() const;

    QPointer<AboutLineView> fieldProductName;
    QPointer<AboutLineView> fieldProductVersion;
    QPointer<NxView> viewHeaderSeperator;
    QPointer<NxView> viewSeperator;
    QPointer<AboutLineView> fieldComputerName;
    QPointer<AboutLineView> fieldOperatingSystem;
    QPointer<AboutLineView> fieldMachine;
    QPointer<AboutLineView> fieldUUID;
    QPointer<AboutLineView> fieldLastORMSync;
};

} // namespace fv2
