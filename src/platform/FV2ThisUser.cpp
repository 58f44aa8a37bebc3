// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ThisUser.h"

#include <unicode/datefmt.h>
#include <unicode/reldatefmt.h>
#include <unicode/unistr.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace fv2 {

namespace {

//! 100 million days: further from 1970 ICU shows another date than the one it is given.
constexpr std::int64_t kLastSecond = 100'000'000LL * 24 * 60 * 60;

icu::Locale timeLocale() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && value[0] != '\0')
            return icu::Locale::createCanonical(value);
    }
    return icu::Locale::getEnglish();
}

} // namespace

std::string accountName() {
    passwd entry{};
    passwd* found = nullptr;
    std::vector<char> texts(1024);
    while (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) == ERANGE && texts.size() < 1024 * 1024)
        texts.resize(2 * texts.size());
    return found == nullptr ? std::string() : entry.pw_name;
}

std::string mediumDate(std::int64_t secondsSince1970) {
    if (secondsSince1970 < -kLastSecond || secondsSince1970 > kLastSecond)
        return {};
    const std::unique_ptr<const icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kMedium, timeLocale()));
    std::string out;
    if (format != nullptr) {
        icu::UnicodeString text;
        format->format(static_cast<UDate>(secondsSince1970) * 1000.0, text).toUTF8String(out);
    }
    return out;
}

std::string timeFromNow(std::int64_t minutes, const std::string& language) {
    constexpr std::int64_t kHour = 60;
    constexpr std::int64_t kDay = 24 * kHour;
    const auto [unit, length] = minutes >= 2 * kDay    ? std::pair(UDAT_REL_UNIT_DAY, kDay)
                                : minutes >= 2 * kHour ? std::pair(UDAT_REL_UNIT_HOUR, kHour)
                                                       : std::pair(UDAT_REL_UNIT_MINUTE, std::int64_t{1});
    const double tenths = std::round(10.0 * static_cast<double>(minutes) / static_cast<double>(length));
    UErrorCode error = U_ZERO_ERROR;
    const icu::RelativeDateTimeFormatter format(icu::Locale::forLanguageTag(language, error), error);
    icu::UnicodeString text;
    // The numeric style: words such as "tomorrow" would be true for a part of a day only.
    format.formatNumeric(tenths / 10, unit, text, error);
    std::string out;
    if (U_SUCCESS(error) != 0)
        text.toUTF8String(out);
    return out;
}

} // namespace fv2
