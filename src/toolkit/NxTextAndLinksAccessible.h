// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessibleWidget>

#include <vector>

namespace fv2 {

class NxTextAndLinksView;

//! What screen readers find of a text with links: a paragraph whose name is the text, with one child for each link,
//! which can be pressed. Qt owns it. Main thread only.
class NxTextAndLinksAccessible final : public QAccessibleWidget {
public:
    //! Makes Qt ask for it; any number of times.
    static void install();
    //! Tells screen readers that the keyboard has come to a link.
    static void tellFocus(NxTextAndLinksView& view, std::size_t link);

    explicit NxTextAndLinksAccessible(NxTextAndLinksView* view);
    ~NxTextAndLinksAccessible() override;

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

private:
    [[nodiscard]] NxTextAndLinksView& view() const;

    mutable std::vector<QAccessible::Id> m_links; //!< made when first asked for; they stay for later texts
};

} // namespace fv2
