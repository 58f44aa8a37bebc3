// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2ViewController.h"
#include "shell/FV2WindowController.h"
#include "toolkit/NxImageView.h"

#include <memory>

namespace fv2 {

//! A strip at the top of a window by which the window can be dragged.
class FV2WindowTitlebarView final : public FV2View {
    Q_OBJECT
public:
    FV2WindowTitlebarView();

    [[nodiscard]] NxImageView* imageView() const { return m_imageView; }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    NxImageView* m_imageView;
};

//! Keeps the strip's colour true.
class FV2WindowTitlebarViewController final : public FV2ViewController {
    Q_OBJECT
public:
    explicit FV2WindowTitlebarViewController(const std::weak_ptr<FV2AppStateModel>& appModel);

protected:
    void refreshColours(const FV2AppConfigModel& config) override;
};

//! Adds such a strip to a window, under the title bar that the desktop draws. Main thread only.
class FV2WindowTitlebarAccessoryViewController final : public QObject {
    Q_OBJECT
public:
    explicit FV2WindowTitlebarAccessoryViewController(std::weak_ptr<FV2AppStateModel> appModel);

    //! Once. The strip dies with this object or with the window, whichever is first.
    void attachTo(FV2WindowController& controller);
    [[nodiscard]] FV2WindowTitlebarViewController* subviewController() const { return m_subviewController.get(); }

private:
    std::weak_ptr<FV2AppStateModel> m_appModel;
    std::unique_ptr<FV2WindowTitlebarViewController> m_subviewController;
};

} // namespace fv2
