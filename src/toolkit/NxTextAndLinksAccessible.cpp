// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTextAndLinksAccessible.h"

#include "toolkit/NxTextAndLinksView.h"

#include <QPointer>
#include <QWindow>

namespace fv2 {

namespace {

//! The link of a number, for as long as the view has one of that number.
class AccessibleLink final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleLink(NxTextAndLinksView* view, std::size_t number)
        : m_view(view)
        , m_number(number) {}

    [[nodiscard]] std::size_t number() const { return m_number; }

    [[nodiscard]] bool isValid() const override { return m_view != nullptr && m_number < m_view->links().size(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return m_view->window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Link; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const NxAttributedString::LinkRange& range = m_view->links().at(m_number);
        return kind == QAccessible::Name ? m_view->string().mid(range.start, range.end - range.start) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override {
        const QRect place = m_view->rectOfLink(m_number);
        return {m_view->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.linked = true;
        state.focusable = true;
        state.focused = m_view->focusedLink() == m_number;
        state.invisible = !m_view->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == setFocusAction())
            m_view->setFocusedLink(m_number);
        else if (name == pressAction())
            m_view->runLink(m_number);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    QPointer<NxTextAndLinksView> m_view;
    std::size_t m_number;
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    auto* const view = qobject_cast<NxTextAndLinksView*>(object);
    return view == nullptr ? nullptr : new NxTextAndLinksAccessible(view);
}

} // namespace

void NxTextAndLinksAccessible::install() {
    QAccessible::installFactory(make); // the same one is only installed once
}

void NxTextAndLinksAccessible::tellFocus(NxTextAndLinksView& view, std::size_t link) {
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(static_cast<int>(link));
    QAccessible::updateAccessibility(&event);
}

NxTextAndLinksAccessible::NxTextAndLinksAccessible(NxTextAndLinksView* view)
    : QAccessibleWidget(view, QAccessible::Paragraph) {
}

NxTextAndLinksAccessible::~NxTextAndLinksAccessible() {
    for (const QAccessible::Id link : m_links)
        QAccessible::deleteAccessibleInterface(link);
}

NxTextAndLinksView& NxTextAndLinksAccessible::view() const {
    return *static_cast<NxTextAndLinksView*>(widget());
}

int NxTextAndLinksAccessible::childCount() const {
    return static_cast<int>(view().links().size());
}

QAccessibleInterface* NxTextAndLinksAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    while (m_links.size() <= static_cast<std::size_t>(index))
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): Qt keeps it until the destructor
        m_links.push_back(QAccessible::registerAccessibleInterface(new AccessibleLink(&view(), m_links.size())));
    return QAccessible::accessibleInterface(m_links.at(static_cast<std::size_t>(index)));
}

int NxTextAndLinksAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const link = dynamic_cast<const AccessibleLink*>(child);
    return link != nullptr && link->parent() == this ? static_cast<int>(link->number()) : -1;
}

QAccessibleInterface* NxTextAndLinksAccessible::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index)
        if (QAccessibleInterface* const link = child(index); link->rect().contains(x, y))
            return link;
    return nullptr;
}

QAccessibleInterface* NxTextAndLinksAccessible::focusChild() const {
    const auto focused = view().focusedLink();
    return focused ? child(static_cast<int>(*focused)) : nullptr;
}

} // namespace fv2
