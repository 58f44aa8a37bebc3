// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "screens/main/LeftMenuCounter.h"

#include "model/FV2StatusLook.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxTextField.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/SpokenStatus.h"

namespace fv2 {

long LeftMenuCounter::statusMessageCount(const FV2AppState& state) {
    const auto count = static_cast<long>(state.statusMessageList.size());
    return count == 1 && state.overallState == fv2StatusStateType::Green ? 0 : count;
}

void LeftMenuCounter::show(NxLeftMenuCellView& cell, const FV2AppState& state, const QColor& darkText) {
    const FV2StatusLook& look = lookOf(state.overallState);
    const long count = statusMessageCount(state);
    cell.counterImage().setVisible(count != 0);
    cell.counterNumberField().setVisible(count != 0);
    if (count != 0) {
        cell.counterImage().setImageName(QString::fromUtf8(look.numberBubble));
        cell.counterNumberField().setText(QString::number(count));
        cell.counterNumberField().setTextColor(look.isNumberDark ? darkText : QColor(Qt::white));
    }
    cell.imageView().setImageName(QString::fromUtf8(look.menuIcon));
}

QString LeftMenuCounter::spoken(const FV2AppState& state, const QString& help) {
    const long count = statusMessageCount(state);
    if (count == 0)
        return help;
    const QString status = translated(QString::fromUtf8(lookOf(state.overallState).spoken));
    return spokenWithStatus(QString::number(count), status) + QStringLiteral(". ") + help;
}

} // namespace fv2
