// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"
#include "shell/FV2View.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <string>

namespace fv2 {

//! Fills one view and keeps it true. Main thread only; whoever shows the view owns the controller.
class FV2ViewController : public QObject {
    Q_OBJECT
public:
    //! The view is made without a parent, which it gets where it is shown.
    FV2ViewController(std::weak_ptr<FV2AppStateModel> appModel, QWidget* view);
    //! Takes the view away with it, unless told not to.
    ~FV2ViewController() override;

    //! Nothing once the window has gone.
    [[nodiscard]] QWidget* view() const { return m_view; }

    //! Reads the model anew.
    virtual void updateFromModel() {}

protected:
    //! To be called at the end of a subclass's construction: gives the view its model. Nothing when the view is no
    //! FV2View or the model is gone.
    FV2View* initsubview();

    //! Takes the colours of the configuration model; called when they may have changed.
    virtual void refreshColours(const FV2AppConfigModel& /*config*/) {}

    bool dontRemoveFromSuperview = false;
    const std::weak_ptr<FV2AppStateModel> appModel;

private:
    void refreshAppearance();

    QPointer<QWidget> m_view;
    std::string m_description; //!< with the subclass's name, which the destructor can't know any more
    std::string m_viewDescription;
};

} // namespace fv2
