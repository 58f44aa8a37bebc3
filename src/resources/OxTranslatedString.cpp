// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/OxTranslatedString.h"

#include "logging/SystemLog.h"

#include <algorithm>

namespace fv2 {

namespace {

//! Used until the application has set its bundle: marks every identifier.
class EmptyBundle final : public OxStringBundle {
public:
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override { return identifier; }
};

const OxStringBundle*& applicationBundle() {
    static const EmptyBundle empty;
    static const OxStringBundle* bundle = &empty;
    return bundle;
}

bool isIdentifier(std::string_view text) {
    return text.starts_with("IDUS_") || text.starts_with("IDCUS_");
}

std::string ascii(std::string_view text) {
    std::string out(text);
    std::replace_if(
        out.begin(), out.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }, '?');
    return out;
}

} // namespace

OxTranslatedString OxTranslatedString::translateOrMarkID(std::string_view text, const OxStringBundle& bundle) {
    if (text.empty())
        return OxTranslatedString();
    if (isIdentifier(text)) {
        std::string found = bundle.localizedString(std::string(text));
        if (!found.empty() && !isIdentifier(found))
            return OxTranslatedString(std::move(found));
        systemLog(fv2SystemLogType::info, "WARNING: Could not find translated string \"" + ascii(text) + "\"\n");
    }
    return OxTranslatedString("!" + std::string(text));
}

OxTranslatedString OxTranslatedString::translateOrMarkID(std::string_view text) {
    return translateOrMarkID(text, *applicationBundle());
}

void OxTranslatedString::setApplicationBundle(const OxStringBundle& bundle) {
    applicationBundle() = &bundle;
}

} // namespace fv2
