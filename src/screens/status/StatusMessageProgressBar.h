// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProgressBar>

namespace fv2 {

//! A flat bar without a text, which the message beside it has. Screen readers tell it as a progress bar with its value.
//! Main thread only.
class StatusMessageProgressBar final : public QProgressBar {
    Q_OBJECT
public:
    explicit StatusMessageProgressBar(QWidget* parent = nullptr);

    //! Of the part that is done; the rest is a shade of `behind`.
    void setColours(const QColor& done, const QColor& behind);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_done;
    QColor m_rest;
};

} // namespace fv2
