// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxTextAndLinksView.h"
#include "toolkit/NxView.h"

namespace fv2 {

//! A styled area filled by a text with links; never lower than the text. Main thread only.
class NxTextAndLinksViewContainer : public NxView {
    Q_OBJECT
public:
    explicit NxTextAndLinksViewContainer(QWidget* parent = nullptr);

    [[nodiscard]] NxTextAndLinksView& textView() const { return *m_textView; }

private:
    NxTextAndLinksView* m_textView;
};

} // namespace fv2
