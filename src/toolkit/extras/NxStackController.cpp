// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxStackController.h"

#include "ui_NxStack.h"

namespace fv2 {

namespace {

std::shared_ptr<NxStackController::MutableControllers>
arrayOf(std::initializer_list<std::shared_ptr<NxViewController>> controllers) {
    auto array = std::make_shared<NxStackController::MutableControllers>(controllers.size());
    for (const auto& each : controllers)
        array->addObject(each);
    return array;
}

//! The view's widgets that Tab may reach, in Tab's order, come behind `last`; tells the last one then.
QWidget* orderForTab(QWidget* last, QWidget* view) {
    std::vector<QWidget*> inside{view};
    for (QWidget* each = view->nextInFocusChain(); each != view; each = each->nextInFocusChain())
        if (view->isAncestorOf(each))
            inside.push_back(each);
    for (QWidget* each : inside)
        if (each->focusPolicy() != Qt::NoFocus) {
            QWidget::setTabOrder(last, each);
            last = each;
        }
    return last;
}

} // namespace

NxStackController::NxStackController()
    : NxStackController(std::make_shared<MutableControllers>()) {
}

NxStackController::NxStackController(std::shared_ptr<MutableControllers> controllers)
    : NxStackController(std::shared_ptr<Controllers>(controllers)) {
    m_ownControllers = std::move(controllers);
}

NxStackController::NxStackController(std::shared_ptr<Controllers> controllers)
    : m_subviewControllers(std::move(controllers)) {
    m_subviewControllers->addContentObserver(*this);
}

NxStackController::~NxStackController() {
    m_subviewControllers->removeContentObserver(*this);
}

std::shared_ptr<NxStackController>
NxStackController::stackWithControllers(std::initializer_list<std::shared_ptr<NxViewController>> controllers) {
    return std::make_shared<NxStackController>(arrayOf(controllers));
}

std::unique_ptr<QWidget> NxStackController::loadView() {
    auto view = std::make_unique<QWidget>();
    Ui::NxStack interface;
    interface.setupUi(view.get());
    m_innerView = interface.innerView;
    return view;
}

void NxStackController::viewDidLoad() {
    applyPaddings();
    updateViews();
}

void NxStackController::set(std::int32_t& padding, std::int32_t value) {
    padding = value;
    applyPaddings();
}

void NxStackController::setPadding(std::int32_t padding) {
    m_paddingTop = m_paddingBottom = m_paddingLeft = m_paddingRight = padding;
    applyPaddings();
}

void NxStackController::applyPaddings() {
    // A layout takes a negative margin for "as the style likes".
    if (!m_innerView.isNull())
        view()->layout()->setContentsMargins(std::max(m_paddingLeft, 0), std::max(m_paddingTop, 0),
                                             std::max(m_paddingRight, 0), std::max(m_paddingBottom, 0));
}

void NxStackController::updateViews() {
    m_isOutdated = true;
    if (m_innerView.isNull() || m_isUpdating)
        return;
    // Loading a view may change the array, which comes back here.
    m_isUpdating = true;
    for (; m_isOutdated; layOutViews())
        m_isOutdated = false;
    m_isUpdating = false;
}

void NxStackController::layOutViews() {
    Children controllers;
    for (std::size_t index = 0; index < m_subviewControllers->count(); ++index)
        controllers.push_back(m_subviewControllers->objectAtIndex(index));
    for (const auto& each : controllers)
        static_cast<void>(each->view());
    if (m_isOutdated)
        return;

    auto* layout = static_cast<QVBoxLayout*>(m_innerView->layout());
    while (const std::unique_ptr<QLayoutItem> item{layout->takeAt(0)}) {
    }
    // A view that stays keeps its parent, and with it the keyboard's focus; one that stands elsewhere by now is no
    // longer ours.
    for (const auto& each : childViewControllers())
        if (std::find(controllers.begin(), controllers.end(), each) == controllers.end() && each->isViewLoaded() &&
            each->view()->parentWidget() == m_innerView)
            each->view()->setParent(nullptr);
    layout->setSpacing(std::max(m_spacing, 0));
    QWidget* last = m_innerView;
    for (const auto& each : controllers) {
        layout->addWidget(each->view());
        last = orderForTab(last, each->view());
    }
    // Room to spare goes to the last view, which reaches down to the bottom, and what it can't take is left below it;
    // it never widens the gaps.
    if (!controllers.empty())
        layout->setStretchFactor(controllers.back()->view(), 1);
    layout->addStretch();
    setChildViewControllers(std::move(controllers));
    // At once, so that nothing is painted with the room of views that have gone.
    layout->activate();
    view()->layout()->activate();
}

} // namespace fv2
