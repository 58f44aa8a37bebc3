// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/OxTranslatedString.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <map>
#include <vector>

namespace {

std::string warnings;

} // namespace

// Replaces the C library's: these tests write nothing to the machine's log.
extern "C" {

int access(const char*, int) { // whether there is a journal
    return -1;
}

#if __USE_FORTIFY_LEVEL > 0
void __syslog_chk(int, int, const char* format, ...) {
#else
void syslog(int, const char* format, ...) {
#endif
    std::array<char, 512> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    warnings += text.data();
}
}

namespace fv2::test {
namespace {

class Table final : public OxStringBundle {
public:
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override {
        const auto found = m_texts.find(identifier);
        return found == m_texts.end() ? identifier : found->second;
    }

private:
    std::map<std::string, std::string> m_texts{{"IDUS_KNOWN", "Gr\u00fcn"},
                                               {"IDCUS_KNOWN", "custom"},
                                               {"IDUS_EMPTY", ""},
                                               {"IDUS_SELF", "IDCUS_KNOWN"},
                                               {"idus_known", "not"}};
};

std::string warningAbout(const std::string& identifier) {
    return "WARNING: Could not find translated string \"" + identifier + "\"\n";
}

TEST(TranslateOrMarkID, ResolvesIdentifiersAndMarksEverythingElse) {
    struct Case {
        std::string text;
        std::string shown;
        std::string warning;
    };
    const std::vector<Case> table{
        {"Hello", "!Hello", ""},
        {"IDUS_KNOWN", "Gr\u00fcn", ""},
        {"IDUS_EMPTY", "!IDUS_EMPTY", warningAbout("IDUS_EMPTY")},
        {"IDUS_SELF", "!IDUS_SELF", warningAbout("IDUS_SELF")},
        {"IDUS_\u00e9%s", "!IDUS_\u00e9%s", warningAbout("IDUS_??%s")},
        {"idus_known", "!idus_known", ""},
        {" IDUS_KNOWN", "! IDUS_KNOWN", ""},
    };
    for (const Case& each : table) {
        warnings.clear();
        EXPECT_EQ(translatedText(each.text, Table()), each.shown);
        EXPECT_EQ(warnings, each.warning) << each.text;
    }
}

TEST(TranslateOrMarkID, UsesTheApplicationsBundleOnceItIsNamed) {
    EXPECT_EQ(translatedText("IDUS_KNOWN"), "!IDUS_KNOWN");
    static const Table bundle;
    OxTranslatedString::setApplicationBundle(bundle);
    EXPECT_EQ(translatedText("IDUS_KNOWN"), "Gr\u00fcn");
    const OxTranslatedString resolved(std::string("Hello"));
    EXPECT_EQ(OxTranslatedString::translateOrMarkID(resolved).string(), "Hello");
}

} // namespace
} // namespace fv2::test
