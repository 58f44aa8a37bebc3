// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FormatText.h"

namespace fv2 {

std::string formatText(std::string_view text, std::initializer_list<std::string_view> arguments) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool mark = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9';
        const auto index = mark ? static_cast<std::size_t>(text[i + 1] - '1') : arguments.size();
        if (index < arguments.size()) {
            out += arguments.begin()[index];
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace fv2
