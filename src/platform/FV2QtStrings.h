// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

#include <QStringList>
#include <QTranslator>

namespace fv2 {

//! The application's own string table: the first of the wanted languages that we have, English where a text is missing.
class FV2QtStrings final : public OxStringBundle {
public:
    //! The administrator's choice, if there is one, then the languages in the order in which the desktop's user prefers
    //! them, as BCP 47 tags.
    [[nodiscard]] static QStringList preferredLanguages(const std::string& ofAdministrator);

    //! Loads "<folder>/fv2-agent_<language>.qm".
    explicit FV2QtStrings(const QStringList& languages, const QString& folder = QStringLiteral(":/strings"));

    [[nodiscard]] std::string localizedString(const std::string& identifier) const override;

    //! For windows: Qt's own texts, which screen readers say, in that language if Qt's tables are installed; and rows
    //! that run as the language does. Once; main thread.
    void installForWindows();

    //! The language that was found, "en" when none was.
    [[nodiscard]] const QString& language() const { return m_language; }

private:
    QTranslator m_english;
    QTranslator m_preferred;
    QTranslator m_ofQt;
    QString m_language;
};

} // namespace fv2
