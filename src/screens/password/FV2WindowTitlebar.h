// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shell/FV2ViewController.h"
#include "shell/FV2WindowController.h"

#include <memory>

namespace fv2 {

class NxTextField;

//! A strip at the top of a window, with what the window is for. The window can be dragged by it.
class FV2WindowTitlebarView final : public FV2View {
    Q_OBJECT
public:
    //! The heading is an identifier.
    explicit FV2WindowTitlebarView(const QString& heading);

    void setColours(const QColor& background, const QColor& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    NxTextField* m_heading;
};

//! Updates the strip's colours.
class FV2WindowTitlebarViewController final : public FV2ViewController {
    Q_OBJECT
public:
    FV2WindowTitlebarViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel,
                                    const QString& heading);

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

    //! Once; the heading is an identifier. The strip dies with this object or with the window, whichever is first.
    void attachTo(FV2WindowController& controller, const QString& heading);
    [[nodiscard]] FV2WindowTitlebarViewController* subviewController() const { return m_subviewController.get(); }

private:
    FV2AppStateModel& m_appModel;
    FV2AppConfigModel& m_appConfigModel;
    std::unique_ptr<FV2WindowTitlebarViewController> m_subviewController;
};

} // namespace fv2
