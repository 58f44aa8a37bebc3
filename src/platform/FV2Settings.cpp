// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"

#include <QFileInfo>
#include <QSettings>

namespace fv2 {

FV2Settings readSettings() {
    FV2Settings settings;
    const QStringList folders =
        qEnvironmentVariable("XDG_CONFIG_DIRS", QStringLiteral("/etc/xdg")).split(u':', Qt::SkipEmptyParts);
    for (const QString& folder : folders) {
        const QString path = folder + QStringLiteral("/fv2-agent/agent.conf");
        if (!QFileInfo(path).isFile())
            continue;
        const QSettings file(path, QSettings::IniFormat);
        const QString host = QString::fromStdString(settings.helpHost);
        settings.helpHost = file.value(QStringLiteral("help/host"), host).toString().toStdString();
        settings.credentialsToRootOnly = file.value(QStringLiteral("credentials/rootOnly"), false).toBool();
        break;
    }
    return settings;
}

} // namespace fv2
