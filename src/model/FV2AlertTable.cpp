// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2AlertTable.h"

#include "resources/FV2TagScanner.h"
#include "resources/FormatText.h"

#include <algorithm>
#include <cstdio>

namespace fv2 {

const FV2AlertRow* alertRow(fv2Alert alert) {
    const auto* const found = std::find_if(kAlertTable.begin(), kAlertTable.end(),
                                           [alert](const FV2AlertRow& row) { return row.alert == alert; });
    return found == kAlertTable.end() ? nullptr : found;
}

FV2AlertContent alertContent(const FV2AlertRow& row, std::uint64_t errorCode, const OxStringBundle& strings,
                             const FV2AlertNotes& notes) {
    const auto plainText = [&strings](std::string_view identifier) {
        return textWithoutLinks(translatedText(identifier, strings));
    };
    FV2AlertContent content{.messageText = plainText(row.title),
                            .informativeText = plainText(row.text),
                            .buttons = {plainText("IDUS_BUTTON_OK")}};
    if (row.postpones != fv2Window::None) {
        content.buttons.push_back(plainText("IDUS_BUTTON_CANCEL"));
        if (!notes.postponement.empty())
            content.note = formatText(plainText("IDUS_ALERT_ASKED_AGAIN"), {notes.postponement});
    }
    if (row.sendsToAdministrator)
        content.note = notes.support;
    if (errorCode != 0) {
        std::array<char, sizeof " (0x)" + 16> code{};
        std::snprintf(code.data(), code.size(), " (0x%llX)", static_cast<unsigned long long>(errorCode));
        content.informativeText += code.data();
    }
    return content;
}

} // namespace fv2
