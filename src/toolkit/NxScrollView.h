// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/NxView.h"

#include <QScrollArea>

namespace fv2 {

//! Content that scrolls up and down when it doesn't fit, on its page's own background. Tab stops at it while there is
//! something to scroll, and a mark shows it. Main thread only.
class NxScrollView : public QScrollArea {
    Q_OBJECT
public:
    explicit NxScrollView(QWidget* parent = nullptr);

protected:
    //! To be called when the content may have become higher or lower.
    void updateFocusPolicy(int contentHeight);

    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void colourFocusMark();

    NxView* m_focusMark;
};

} // namespace fv2
