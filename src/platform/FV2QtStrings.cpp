// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2QtStrings.h"

#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace fv2 {

namespace {

QString tablePath(const QString& folder, const QString& language) {
    return folder + QStringLiteral("/fv2-agent_") + language + QStringLiteral(".qm");
}

//! "de-AT" is looked for as de_AT, then as de.
QString firstLanguageWithTable(const QStringList& wanted, const QString& folder) {
    for (QString tag : wanted) {
        tag.replace(QLatin1Char('-'), QLatin1Char('_'));
        for (const QString& candidate : {tag, tag.section(QLatin1Char('_'), 0, 0)}) {
            if (QFile::exists(tablePath(folder, candidate)))
                return candidate;
        }
    }
    return QStringLiteral("en");
}

} // namespace

QStringList FV2QtStrings::preferredLanguages(const std::string& ofAdministrator) {
    QStringList languages = QLocale::system().uiLanguages();
    if (!ofAdministrator.empty())
        languages.prepend(QString::fromStdString(ofAdministrator));
    return languages;
}

FV2QtStrings::FV2QtStrings(const QStringList& languages, const QString& folder)
    : m_language(firstLanguageWithTable(languages, folder)) {
    static_cast<void>(m_english.load(tablePath(folder, QStringLiteral("en"))));
    if (m_language != QStringLiteral("en"))
        static_cast<void>(m_preferred.load(tablePath(folder, m_language)));
}

void FV2QtStrings::installForWindows() {
    const QLocale locale(m_language);
    if (m_ofQt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_ofQt);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

std::string FV2QtStrings::localizedString(const std::string& identifier) const {
    for (const QTranslator* table : {&m_preferred, &m_english}) {
        const QString text = table->translate(nullptr, identifier.c_str());
        if (!text.isEmpty())
            return text.toStdString();
    }
    return identifier;
}

} // namespace fv2
