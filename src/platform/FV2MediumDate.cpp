// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2MediumDate.h"

#include <unicode/datefmt.h>
#include <unicode/unistr.h>

#include <cstdlib>
#include <memory>

namespace fv2 {

namespace {

icu::Locale timeLocale() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && value[0] != '\0')
            return icu::Locale::createCanonical(value);
    }
    return icu::Locale::getEnglish();
}

} // namespace

std::string mediumDate(std::int64_t secondsSince1970) {
    const std::unique_ptr<const icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kMedium, timeLocale()));
    std::string out;
    if (format != nullptr) {
        icu::UnicodeString text;
        format->format(static_cast<UDate>(secondsSince1970) * 1000.0, text).toUTF8String(out);
    }
    return out;
}

} // namespace fv2
