// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "resources/FV2AppConfigModel.h"
#include "shell/FV2View.h"

#include <QObject>
#include <QPointer>

#include <string>

namespace fv2 {

//! Fills and updates one view. Both models are built before every screen and live on after the last one, so screens
//! hold them by plain reference. Main thread only; whoever shows the view owns the controller.
class FV2ViewController : public QObject {
    Q_OBJECT
public:
    //! The view is made without a parent, which it gets where it is shown.
    FV2ViewController(FV2AppStateModel& appModel, FV2AppConfigModel& appConfigModel, FV2View* view);
    //! Takes the view away with it, unless told not to.
    ~FV2ViewController() override;

    //! Nothing once the window has gone.
    [[nodiscard]] FV2View* view() const { return m_view; }

    //! Reads the model anew.
    virtual void updateFromModel() {}

protected:
    //! To be called at the end of a subclass's construction: sets the view up and takes the colours.
    void initsubview();

    //! Takes the colours of the configuration model; called when they may have changed.
    virtual void refreshColours(const FV2AppConfigModel& /*config*/) {}

    bool dontRemoveFromSuperview = false;
    FV2AppStateModel& appModel;
    FV2AppConfigModel& appConfigModel;

private:
    QPointer<FV2View> m_view;
    std::string m_description; //!< with the subclass's name, unknown in the destructor
    std::string m_viewDescription;
};

} // namespace fv2
