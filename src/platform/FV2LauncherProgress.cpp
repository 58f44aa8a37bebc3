// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2LauncherProgress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

namespace fv2 {

void FV2LauncherProgress::show(std::optional<int> percent) {
    if (std::exchange(m_shown, percent) == percent)
        return;
    QDBusMessage update =
        QDBusMessage::createSignal(QStringLiteral("/org/fv2agent/Agent/LauncherEntry"),
                                   QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    update << QStringLiteral("application://org.fv2agent.Agent.desktop")
           << QVariantMap{{QStringLiteral("progress"), percent.value_or(0) / 100.0},
                          {QStringLiteral("progress-visible"), percent.has_value()}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace fv2
