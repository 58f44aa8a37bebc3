// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/Fakes.h"
#include "screens/FV2ScreenFactory.h"
#include "screens/main/LeftMenuTableView.h"
#include "screens/main/MainWindowWindowController.h"
#include "toolkit/NxLeftMenuCellView.h"
#include "toolkit/NxTextField.h"

#include <QApplication>

namespace fv2::test {

//! The real screens on a model among fakes.
class Screens : public Model {
protected:
    void SetUp() override {
        OxTranslatedString::setApplicationBundle(strings);
        model->setWndDelegate(&registry);
        interface.windows = [this](const FV2AppState& state) { registry.stateChanged(state); };
    }
    void TearDown() override {
        registry.closeAll();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open() { registry.openWindow(fv2Window::Main, true); }
    void refreshShown(const std::string& answer) { refresh(answer, fv2SyncSource::Moved, false); }
    std::shared_ptr<MainWindowWindowController> main() const {
        return std::dynamic_pointer_cast<MainWindowWindowController>(registry.registeredController(fv2Window::Main));
    }
    FV2Window& window() const { return main()->window(); }
    MainWindowViewController& pages() const { return *main()->viewController(); }
    LeftMenuTableView& menu() const { return *window().findChild<LeftMenuTableView*>(QStringLiteral("tableView")); }
    NxLeftMenuCellView& cell(int row) const {
        return *qobject_cast<NxLeftMenuCellView*>(menu().itemWidget(menu().item(row)));
    }
    static QColor textColour(const NxTextField& field) { return field.palette().color(field.foregroundRole()); }
    QColor shownAt(const QString& name) const {
        const auto* const view = window().findChild<QWidget*>(name);
        return window().grab().toImage().pixelColor(view->mapTo(&window(), QPoint(2, 0)));
    }

    bool dark = false;
    FV2AppConfigModel config{[this] { return dark; }, "An OS", "A CPU", {"Business", "business"}};
    FV2ScreenFactory screens{*model, config, "anna"};
    FV2WindowDelegate registry{*model, config, screens};
};

} // namespace fv2::test
