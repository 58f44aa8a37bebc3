// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtStrings.h"

#include "support/TemporaryFolder.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

const QString kTables = QStringLiteral(STRING_TABLES);

std::string cancelIn(const QStringList& wanted) {
    return FV2QtStrings(wanted, kTables).localizedString("IDUS_BUTTON_CANCEL");
}

TEST(QtStrings, TakesTheFirstWantedLanguageThatItHas) {
    ASSERT_NE(cancelIn({"de"}), cancelIn({"en"}));
    for (const QStringList& german : {QStringList{"fr", "de-AT", "en"}, {"de_DE"}})
        EXPECT_EQ(cancelIn(german), cancelIn({"de"})) << german.join(' ').toStdString();
    for (const QStringList& none : {QStringList{}, {"en-GB", "de"}, {"C"}, {"", "-", "d"}, {"../de"}, {"deu", "en"}})
        EXPECT_EQ(cancelIn(none), cancelIn({"en"})) << none.join(' ').toStdString();
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
    EXPECT_EQ(strings.localizedString("IDUS_UNKNOWN"), "unbekannt: \u00fc");
    EXPECT_EQ(strings.localizedString("IDUS_BUTTON_CANCEL"), cancelIn({"en"}));
    for (const char* unknown : {"IDUS_NO_SUCH_TEXT", "IDUS_", ""})
        EXPECT_EQ(strings.localizedString(unknown), unknown);

    std::ofstream(folder / "fv2-agent_en.qm") << "not a table";
    EXPECT_EQ(FV2QtStrings({}, QString::fromStdString(folder.path())).localizedString("IDUS_UNKNOWN"), "IDUS_UNKNOWN");
}

TEST(QtStrings, BringsWindowsTheTextsOfQtAndTheDirectionOfTheLanguage) {
    const TemporaryFolder folder;
    for (const std::string language : {"ar", "de"})
        std::filesystem::copy_file(STRING_TABLES "/fv2-agent_en.qm", folder / ("fv2-agent_" + language + ".qm"));
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(); };
    for (const auto& [language, direction, text] :
         {std::tuple{"ar-EG", Qt::RightToLeft, "ألغِ"}, {"de-AT", Qt::LeftToRight, "Abbrechen"}}) {
        FV2QtStrings strings({QString::fromUtf8(language)}, QString::fromStdString(folder.path()));
        EXPECT_EQ(cancel(), "Cancel") << "not before there is a window";
        strings.installForWindows();
        EXPECT_EQ(cancel(), text);
        EXPECT_EQ(QGuiApplication::layoutDirection(), direction);
    }
}

} // namespace
} // namespace fv2::test
