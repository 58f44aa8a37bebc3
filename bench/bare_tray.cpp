// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//! The least that a Qt program with a tray item can be: what the agent's start and memory are measured against. It
//! waits for the tray as the agent does.
#include "platform/FV2TrayWatcher.h"

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMenu menu;
    menu.addAction(QStringLiteral("Open"));
    menu.addAction(QStringLiteral("Synchronize"));
    QPixmap picture(48, 48);
    picture.fill(Qt::darkGreen);
    QSystemTrayIcon* item = nullptr;
    const fv2::FV2TrayWatcher watcher([&] {
        item = new QSystemTrayIcon(QIcon(picture), qApp);
        item->setToolTip(QStringLiteral("Bare"));
        item->setContextMenu(&menu);
        item->show();
    });
    return QApplication::exec();
}
