// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"

#include "logging/FV2Logging.h"

#include <QFileInfo>
#include <QSettings>

namespace fv2 {

FV2Settings readSettings() {
    FV2Settings settings;
    QStringList folders = qEnvironmentVariable("XDG_CONFIG_DIRS").split(u':', Qt::SkipEmptyParts);
    folders.append(QStringLiteral("/etc/xdg"));
    for (const QString& folder : folders) {
        const QString path = folder + QStringLiteral("/fv2-agent/agent.conf");
        if (!QFileInfo(path).isFile())
            continue;
        const QSettings file(path, QSettings::IniFormat);
        if (file.status() != QSettings::NoError) {
            log(FV2LoggingLevel::error, {"readSettings() can't read " + path.toStdString()});
            settings.credentialsToRootOnly = true;
            break;
        }
        const QString host = QString::fromStdString(settings.helpHost);
        settings.helpHost = file.value(QStringLiteral("help/host"), host).toString().toStdString();
        settings.credentialsToRootOnly = file.value(QStringLiteral("credentials/rootOnly"), false).toBool();
        break;
    }
    return settings;
}

} // namespace fv2
