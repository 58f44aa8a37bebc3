// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Browser.h"

#include <QDesktopServices>
#include <QUrl>

namespace fv2 {

void openInBrowser(const std::string& address) {
    const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
    if (url.isValid() && isWeb && !url.host().isEmpty())
        QDesktopServices::openUrl(url);
}

void openContact(const std::string& address) {
    const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
    const bool isPage = url.scheme() == QStringLiteral("https") && !url.host().isEmpty();
    const bool isCall = url.scheme() == QStringLiteral("tel") && !url.path().isEmpty();
    if (url.isValid() && (isPage || isCall))
        QDesktopServices::openUrl(url);
}

} // namespace fv2
