// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

namespace fv2::test {

//! Texts that no screen may take for markup or shortcuts: "<b>A & b" for "IDUS_A", nothing for "IDUS_NONE".
class Texts final : public OxStringBundle {
public:
    static void use() {
        static const Texts texts;
        OxTranslatedString::setApplicationBundle(texts);
    }
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override {
        return identifier == "IDUS_NONE" ? identifier : "<b>" + identifier.substr(identifier.rfind('_') + 1) + " & b";
    }
};

} // namespace fv2::test
