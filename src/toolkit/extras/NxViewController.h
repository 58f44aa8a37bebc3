// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

namespace fv2 {

//! Looks after one view, which is made when it is first asked for. Owned by a shared pointer, never by a QObject
//! parent. The view belongs to its controller also while it stands in another widget. Main thread only.
class NxViewController : public QObject {
    Q_OBJECT
public:
    NxViewController() = default;
    ~NxViewController() override;

    //! Loads the view if need be; never null. A view that died with the widget it stood in is loaded anew.
    [[nodiscard]] QWidget* view();
    [[nodiscard]] bool isViewLoaded() const { return !m_view.isNull(); }

    using Children = std::vector<std::shared_ptr<NxViewController>>;
    [[nodiscard]] const Children& childViewControllers() const { return m_children; }

protected:
    //! Makes the view, without a parent. Here a plain widget.
    [[nodiscard]] virtual std::unique_ptr<QWidget> loadView();
    //! Called once the view is there, each time that it has been loaded.
    virtual void viewDidLoad() {}

    //! The children that stand in the view; they are kept alive.
    void setChildViewControllers(Children children) { m_children = std::move(children); }

private:
    QPointer<QWidget> m_view;
    Children m_children;
};

} // namespace fv2
