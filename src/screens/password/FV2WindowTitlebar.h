// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2ViewController.h"
#include "shell/FV2WindowController.h"

#include <memory>

namespace fv2 {

//! A strip at the top of a window by which the window can be dragged.
class FV2WindowTitlebarView final : public FV2View {
    Q_OBJECT
public:
    FV2WindowTitlebarView();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

//! Updates the strip's colour.
class FV2WindowTitlebarViewController final : public FV2ViewController {
    Q_OBJECT
public:
    FV2WindowTitlebarViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;
};

//! Adds such a strip to a window, under the title bar that the desktop draws. Main thread only.
class FV2WindowTitlebarAccessoryViewController final : public QObject {
    Q_OBJECT
public:
    FV2WindowTitlebarAccessoryViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel)
        : m_appModel(appModel)
        , m_appConfigModel(appConfigModel) {}

    //! Once. The strip dies with this object or with the window, whichever is first.
    void attachTo(FV2WindowController& controller);
    [[nodiscard]] FV2WindowTitlebarViewController* subviewController() const { return m_subviewController.get(); }

private:
    FV2AppStateModel& m_appModel;
    FV2AppConfigModel& m_appConfigModel;
    std::unique_ptr<FV2WindowTitlebarViewController> m_subviewController;
};

} // namespace fv2
