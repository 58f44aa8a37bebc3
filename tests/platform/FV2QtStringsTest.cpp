// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtStrings.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace fv2::test {
namespace {

const QString kTables = QStringLiteral(STRING_TABLES);

//! The texts that the identifier has in a language's own table, with English out of reach.
std::string textIn(const char* language, std::string_view identifier) {
    const TemporaryFolder folder;
    const std::string name = std::string("fv2-agent_") + language + ".qm";
    std::filesystem::copy_file(std::string(STRING_TABLES) + "/" + name, folder / name);
    const FV2QtStrings strings({QString::fromUtf8(language)}, QString::fromStdString(folder.path()));
    return OxTranslatedString::translateOrMarkID(identifier, strings).string();
}

TEST(QtStrings, TakesTheFirstWantedLanguageThatItHas) {
    struct Case {
        QStringList wanted;
        const char* language;
    };
    const std::vector<Case> table{
        {{"fr", "de-AT", "en"}, "de"}, {{"de_DE"}, "de"}, {{"en-GB", "de"}, "en"}, {{"C"}, "en"}, {{}, "en"},
        {{"", "-", "d"}, "en"},        {{"../de"}, "en"}, {{"deu", "en"}, "en"},
    };
    ASSERT_NE(textIn("de", "IDUS_BUTTON_CANCEL"), textIn("en", "IDUS_BUTTON_CANCEL"));
    for (const Case& each : table) {
        const FV2QtStrings strings(each.wanted, kTables);
        EXPECT_EQ(strings.language().toStdString(), each.language) << each.wanted.join(' ').toStdString();
        EXPECT_EQ(strings.localizedString("IDUS_BUTTON_CANCEL"), textIn(each.language, "IDUS_BUTTON_CANCEL"));
    }
}

TEST(QtStrings, FallsBackToEnglishAndThenToTheIdentifier) {
    const TemporaryFolder folder;
    std::filesystem::copy_file(STRING_TABLES "/fv2-agent_en.qm", folder / "fv2-agent_en.qm");
    std::ofstream(folder / "fv2-agent_de.ts") << R"(<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS><TS version="2.1" language="de"><context><name></name>
<message id="IDUS_UNKNOWN"><source>x</source><translation>unbekannt: ü</translation></message>
</context></TS>)";
    ASSERT_EQ(std::system((LRELEASE " -idbased -silent " + (folder / "fv2-agent_de.ts")).c_str()), 0); // NOLINT
    const FV2QtStrings strings({QStringLiteral("de")}, QString::fromStdString(folder.path()));
    EXPECT_EQ(strings.language(), QStringLiteral("de"));
    EXPECT_EQ(strings.localizedString("IDUS_UNKNOWN"), "unbekannt: \u00fc");
    EXPECT_EQ(strings.localizedString("IDUS_BUTTON_CANCEL"), textIn("en", "IDUS_BUTTON_CANCEL"));
    for (const char* unknown : {"IDUS_NO_SUCH_TEXT", "IDUS_", ""})
        EXPECT_EQ(strings.localizedString(unknown), unknown);

    std::ofstream(folder / "fv2-agent_en.qm") << "not a table";
    EXPECT_EQ(FV2QtStrings({}, QString::fromStdString(folder.path())).localizedString("IDUS_UNKNOWN"), "IDUS_UNKNOWN");
}

} // namespace
} // namespace fv2::test
