// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppState.h"
#include "resources/FV2AppConfigModel.h"
#include "toolkit/NxView.h"

#include <QPointer>

#include <array>

class QGridLayout;

namespace fv2 {

class NxImageView;
class NxTextField;

//! What the status page shows while there is no message: that all is well, and this computer's name and last
//! synchronisation. Main thread only.
class NothingToDoView final : public NxView {
    Q_OBJECT
public:
    explicit NothingToDoView(QWidget* parent = nullptr);

    void show(const FV2AppState& state);
    void setColours(const FV2AppConfigModel& config);

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Line {
        NxTextField* label;
        NxTextField* value;
    };
    [[nodiscard]] Line addLine(QGridLayout& card, const char* label);

    NxImageView* m_sign;
    NxTextField* m_title;
    NxTextField* m_text;
    NxView* m_card;
    NxView* m_separator;
    Line m_computer{};
    Line m_lastSynchronisation{};
};

} // namespace fv2
